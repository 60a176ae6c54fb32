#include "lab/scripttext.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "autobet/numbertext.h"
#include "lab/json.h"

namespace tarnwick::lab {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::uintmax_t LongestFile = std::uintmax_t{16} << 20;

std::string FromCodePage(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) text += CharacterOfCode(static_cast<unsigned char>(byte));
    return text;
}

}  // namespace

std::vector<std::string> ScriptLinesOf(std::string_view bytes) {
    if (bytes.substr(0, ByteOrderMark.size()) == ByteOrderMark) bytes.remove_prefix(ByteOrderMark.size());
    const std::string text = IsUtf8(bytes) ? std::string(bytes) : FromCodePage(bytes);
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        if (text[i] != '\n' && text[i] != '\r') {
            lines.back() += text[i];
        } else if (i + 1 < text.size()) {
            lines.emplace_back();
        }
    }
    return lines;
}

std::string ReadScriptLines(const std::string& path, std::vector<std::string>& lines) {
    std::error_code error;
    const bool isFile = std::filesystem::is_regular_file(path, error);
    if (!isFile && std::filesystem::exists(path, error) && std::filesystem::is_directory(path, error)) {
        return path + " is a folder";
    }
    if (isFile && std::filesystem::file_size(path, error) > LongestFile) return path + " is too long for a script";
    std::ifstream file(path, std::ios::binary);
    if (!file) return "the script " + path + " can't be read";
    lines = ScriptLinesOf(std::string(std::istreambuf_iterator<char>(file), {}));
    return {};
}

}  // namespace tarnwick::lab
