// Script files: one line of the script a line of text, and the records of earlier versions, which are turned into the
// language of today when they are read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

/// What a file's bytes were.
enum class ScriptForm { Text, Marrowgate50, Tarnwick39, Tarnwick50 };

struct ScriptText {
    std::vector<std::string> Lines{std::string()};  ///< UTF-8, never empty, no line breaks inside
    ScriptForm Form = ScriptForm::Text;
};

/// Longest script file that is read, in bytes.
constexpr std::size_t MaxScriptFile = 16u * 1024 * 1024;

/// The script in the bytes of a file. Text may end its lines with CR LF, LF or CR, may begin with a byte order mark,
/// and is UTF-8 or, when it can't be, code page 1252. Records are converted. Never refuses: any bytes are a script.
ScriptText ScriptFromBytes(std::string_view bytes);

/// Reads the file `path` into `script`; returns what is wrong, or nothing. A file that can't be read, is no file or is
/// longer than MaxScriptFile leaves `script` as it was.
std::string ReadScriptFile(const std::string& path, ScriptText& script);

/// `lines` as the bytes of a text file: UTF-8 with the platform's line end behind every line. No lines, or one that is
/// empty, give no bytes.
std::string ScriptFileText(const std::vector<std::string>& lines);

/// Replaces the file `path` by `lines` as text; returns what is wrong, or nothing. After a fault the old file is whole.
std::string WriteScriptFile(const std::string& path, const std::vector<std::string>& lines);

}  // namespace tarnwick
