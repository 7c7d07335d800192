// What most tests of windows include; used by the builds that precompile headers.
#include <QtTest>
#include <QtWidgets>

#include "cmake/test_pch.h"
