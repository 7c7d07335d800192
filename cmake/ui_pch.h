// What most windows include; used by the builds that precompile headers.
#include <QtWidgets>

#include "cmake/engine_pch.h"
