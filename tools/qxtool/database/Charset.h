// The two encodings in which text goes to a server and comes back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qxtool::database {

enum class Charset { kUtf8, kCodePage950 };

/// `text` in another encoding; nothing when a part of it has no form there.
///
/// Ten characters that code page 950 holds twice are one each in UTF-8: they come back as their main code.
std::optional<std::string> Convert(std::string_view text, Charset from, Charset to);

/// The same for people: a part without a form is its bytes as \xNN.
std::string ConvertVisibly(std::string_view text, Charset from, Charset to);

/// A statement (code page 950) as a server or a terminal takes it.
/// @throws qxTools::Exception, naming the line, when the encoding has no form for a byte of it.
std::string ForServer(std::string_view statement, Charset charset);

}  // namespace qxtool::database
