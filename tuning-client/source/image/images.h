#pragma once

/// Registers the pictures below ":/images/". The linker drops an object of a static library that nobody names, and the
/// resource's own registration with it: whoever has a main function calls this once.
void imagesInit();
