#include "tuning-client/source/config/config.h"

cfg::Config config;
