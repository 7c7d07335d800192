// A fixture under which a division by zero or an invalid operation ends the test program at once, so that an
// operation that was left unchecked cannot pass unseen.
#pragma once

#include <gtest/gtest.h>

#include <cfenv>
#include <string>
#include <utility>
#include <vector>

#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"

namespace halvorine {

/// Traps while it lives, and puts back what was trapped before.
class ArithmeticTraps {
 public:
  ArithmeticTraps() {
    std::feclearexcept(FE_ALL_EXCEPT);
    before_ = feenableexcept(FE_DIVBYZERO | FE_INVALID);
  }
  ~ArithmeticTraps() {
    fedisableexcept(FE_DIVBYZERO | FE_INVALID);
    feenableexcept(before_);
  }
  ArithmeticTraps(const ArithmeticTraps&) = delete;
  ArithmeticTraps& operator=(const ArithmeticTraps&) = delete;

 private:
  int before_ = 0;
};

/// Base of the numeric tests: fresh shared records and trapping arithmetic.
class TrappingArithmetic : public testing::Test {
 protected:
  TrappingArithmetic() { ResetSharedRecords(); }
  ~TrappingArithmetic() override {
    ResetSharedRecords();
    LanguageLines.clear();
    LanguageLoaded = false;
  }
  static void Speak(std::vector<std::string> languageLines) {
    LanguageLines = std::move(languageLines);
    LanguageLoaded = true;
  }

 private:
  ArithmeticTraps traps_;
};

}  // namespace halvorine
