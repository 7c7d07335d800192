// What most tests include; used by the builds that precompile headers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cmake/engine_pch.h"
