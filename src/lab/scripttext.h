// Script files as the laboratory reads them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::lab {

/// The lines of a script in the bytes of a text file: LF, CR LF or CR end a line, a byte order mark is left out, and
/// text that is no UTF-8 is taken for code page 1252. Never empty.
std::vector<std::string> ScriptLinesOf(std::string_view bytes);

/// Reads the file `path` into `lines`; returns what is wrong, or nothing.
std::string ReadScriptLines(const std::string& path, std::vector<std::string>& lines);

}  // namespace tarnwick::lab
