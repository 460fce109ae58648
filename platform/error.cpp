// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/error.hpp"

namespace kelp {

std::string_view ErrorName(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::Overflow: return "Overflow";
    case ErrorKind::Subscript: return "Subscript out of range";
    case ErrorKind::TypeMismatch: return "Type mismatch";
    case ErrorKind::DivisionByZero: return "Division by zero";
    case ErrorKind::InvalidCall: return "Invalid procedure call";
    case ErrorKind::File: return "File error";
  }
  return "Error";
}

}  // namespace kelp
