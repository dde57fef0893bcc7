#include "tuning-client/source/image/images.h"

#include <QtGlobal>

void imagesInit() { Q_INIT_RESOURCE(images); }
