#include "tuning-client/source/part-widget.h"
