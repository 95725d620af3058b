#pragma once

#include <qxTools/base/Exceptions.h>

#include <string>

namespace qxTools::test {

/// The message of the qxTools::Exception that `call` throws; a call that throws nothing does not pass for
/// one that did.
template <class Call>
std::string MessageOf(Call&& call) {
  try {
    call();
  } catch (const Exception& e) {
    return e.what();
  }
  return "(nothing thrown)";
}

}  // namespace qxTools::test
