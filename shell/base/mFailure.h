// The one family of failures that the engine raises. Who may catch which of them is told in docs/design.md:
// a skipped statement, a drawing routine, a driver or reader, and the application object.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace halvorine {

/// Root of the family; the text says in lower case what happened and with which value.
class RuntimeFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Division by zero, a root or broken power of a negative number, a logarithm or an arc out of its range.
class ArithmeticFailure : public RuntimeFailure {
 public:
  using RuntimeFailure::RuntimeFailure;
};

/// A result that its type cannot hold.
class OverflowFailure : public ArithmeticFailure {
 public:
  using ArithmeticFailure::ArithmeticFailure;
};

/// An index outside a table or a slot array.
class SubscriptFailure : public RuntimeFailure {
 public:
  using RuntimeFailure::RuntimeFailure;
};

/// A text that does not hold the wanted value.
class ConversionFailure : public RuntimeFailure {
 public:
  using RuntimeFailure::RuntimeFailure;
};

/// A file that cannot be opened, read or written.
class FileFailure : public RuntimeFailure {
 public:
  using RuntimeFailure::RuntimeFailure;
};

/// A file that cannot be written: with the system's error number, and whether it could be opened at all.
class WriteFailure : public FileFailure {
 public:
  WriteFailure(const std::string& text, int error, bool opened)
      : FileFailure(text), Error(error), Opened(opened) {}
  int Error;
  bool Opened;
};

/// A settings store that refuses; `Code` is the store's number for the reason.
class SettingsFailure : public RuntimeFailure {
 public:
  SettingsFailure(const std::string& text, std::uint32_t code) : RuntimeFailure(text), Code(code) {}
  std::uint32_t Code;
};

/// The end of the process was decided during start-up; what was to be said has been said.
class StartupEnds : public RuntimeFailure {
 public:
  using RuntimeFailure::RuntimeFailure;
};

}  // namespace halvorine
