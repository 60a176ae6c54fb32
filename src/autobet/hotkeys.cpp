#include "autobet/hotkeys.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "autobet/numbertext.h"
#include "files/atomicfile.h"
#include "files/codepage.h"
#include "files/record.h"

namespace tarnwick {

namespace {

constexpr std::size_t KeyAt = 0, KeyLength = 1;
constexpr std::size_t NameAt = 1, FileAt = 101, TextLength = 100;
constexpr std::size_t UsedLength = FileAt + TextLength;
constexpr std::string_view Title = "Tarnwick Hot-Key File";
constexpr std::uintmax_t LongestFile = 16u * 1024 * 1024;

bool PathSurvives(const std::string& path) {
    const Encoded encoded = ToCodePage(path);
    return encoded.Bytes.size() <= TextLength && FieldText(encoded.Bytes) == path;
}

Record RowRecord(std::string_view key, std::string_view name, std::string_view file) {
    Record record;
    record.PutText(KeyAt, KeyLength, ToCodePage(key).Bytes);
    record.PutText(NameAt, TextLength, ToCodePage(name).Bytes);
    record.PutText(FileAt, TextLength, ToCodePage(file).Bytes);
    return record;
}

}  // namespace

const HotKey* FindHotKey(const HotKeyList& list, char letter) {
    const char capital = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    if (capital < 'A' || capital > 'Z') return nullptr;
    const auto row = std::find_if(list.begin(), list.end(), [capital](const HotKey& key) {
        return key.Key.size() == 1 && key.Key[0] == capital;
    });
    return row == list.end() ? nullptr : &*row;
}

std::string HotKeyRefusal(const HotKey& key) {
    if (key.File.empty()) return "Please enter an Auto-Bet filename to define this Hot-Key.";
    return PathSurvives(key.File) ? std::string() : "Path, file, or device error.";
}

HotKeyList HotKeysFromBytes(std::string_view bytes) {
    HotKeyList list;
    const double count = NumberAtStart(FieldText(Record(bytes).Text(FileAt, TextLength)));
    // A count beyond 32 bits is no worse than one beyond the file's end.
    const std::int32_t rows = RoundToInt32(count).value_or(count > 0 ? INT32_MAX : 0);
    for (std::size_t at = RecordLength;
         static_cast<std::int64_t>(list.size()) < rows && at + UsedLength <= bytes.size(); at += RecordLength) {
        const Record record(bytes.substr(at));
        list.push_back({FieldText(record.Text(KeyAt, KeyLength)), FieldText(record.Text(NameAt, TextLength)),
                        FieldText(record.Text(FileAt, TextLength))});
    }
    return list;
}

std::string HotKeyFileBytes(const HotKeyList& list) {
    std::string bytes(RowRecord("", Title, std::to_string(list.size())).AllBytes());
    for (const HotKey& row : list) bytes += RowRecord(row.Key, row.Description, row.File).AllBytes();
    return bytes;
}

std::string LoadHotKeys(const std::string& path, HotKeyList& list) {
    std::error_code error;
    if (std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found) {
        list.clear();
        return {};
    }
    std::string bytes;
    const std::string fault = ReadWholeFile(path, LongestFile, bytes);
    if (!fault.empty()) return path + " can't be read: " + fault + ".";
    list = HotKeysFromBytes(bytes);
    return {};
}

std::string SaveHotKeys(const std::string& path, const HotKeyList& list) {
    for (const HotKey& row : list) {
        if (!PathSurvives(row.File)) return "Path, file, or device error.";
    }
    const std::string fault = ReplaceFile(path, HotKeyFileBytes(list));
    return fault.empty() ? fault : path + " can't be written: " + fault + ".";
}

}  // namespace tarnwick
