// The options of `call --safe`.
#pragma once

#include <qxTools/sql/qxSqlSafeCall.h>

#include "CommandLine.h"

namespace qxtool {

struct SafeOptions {
  bool isOn = false;
  std::string text = "nvarchar";
  std::string date = "datetime";
  qxTools::qxSqlSafeCall::TSafeCallOptions call;  // the lengths
};

/// Adds --safe, which it returns, and the options that belong to it.
Option AddSafeOptions(Command& command, SafeOptions& options);

/// The options as the library takes them.
qxTools::qxSqlSafeCall::TSafeCallOptions CallOptions(const SafeOptions& options);

}  // namespace qxtool
