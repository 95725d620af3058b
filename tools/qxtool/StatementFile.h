// Statement files: their encodings, and the batches of a script.
#pragma once

#include <qxTools/runtime/Variant.h>

#include <string>
#include <string_view>
#include <vector>

namespace qxtool {

/// The text of a statement file as code page 950. A file that begins with a byte-order mark is UTF-8 or
/// UTF-16, whatever the options say; "-" is standard input.
/// @throws Failure, naming the file, if it cannot be read or holds a character that the page lacks.
std::string ReadStatement(const std::string& fileName);

/// A part of a script that is sent by itself.
struct Batch {
  std::string text = {};
  int firstLine = 1;                          // of the file
  int count = 1;                              // how often it is sent
  std::vector<qxTools::Variant> values = {};  // bound to its "?" marks, in their order
};

/// The parts of a script between its GO lines; blank ones are left out. GO is a line of its own, in any case,
/// outside literals, names in brackets or quotes, and comments; a number behind it is how often its batch
/// runs.
std::vector<Batch> SplitBatches(std::string_view script);

}  // namespace qxtool
