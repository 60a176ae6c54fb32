#include "dice/probabilityfile.h"

#include <filesystem>

#include "dice/dice.h"
#include "dice/matrix.h"
#include "dice/matrixeditor.h"
#include "files/atomicfile.h"
#include "files/codepage.h"
#include "files/record.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

constexpr std::string_view Title = "Tarnwick Probability File, Data Format 4.6";
constexpr std::size_t TitleLength = 200;
constexpr std::size_t ValueLength = 4, ValuesInRecord = RecordLength / ValueLength;
constexpr std::uintmax_t LongestFile = 16u * 1024 * 1024;
constexpr std::int32_t LockedState = 128;

constexpr std::string_view NotProbabilities =
    "is either from an older version, has been corrupted, or is not a true Tarnwick Probability File.";

/// Calls `visit` for every value of the matrix in the order of the file.
template <class Matrix, class Visit>
void ForEachValue(Matrix& cells, Visit visit) {
    for (auto& kind : cells)
        for (auto& column : kind)
            for (auto& value : column) visit(value);
}

bool AnyNegative(const MatrixCells& cells) {
    for (int col = 1; col <= 7; ++col) {
        for (int row = 1; row <= SecondDieRow; ++row) {
            const std::int32_t value = cells[1][static_cast<std::size_t>(col)][static_cast<std::size_t>(row)];
            if (KindOfCell({col, row}) != CellKind::None && value < 0) return true;
        }
    }
    return false;
}

void KeepSoundStates(MatrixCells& cells) {
    auto& states = cells[0];
    for (std::size_t col = 1; col < states.size(); ++col)
        for (std::int32_t& state : states[col]) state &= LockedState;
    if (KindOfCell({states[0][1], states[0][2]}) == CellKind::None) {
        states[0][1] = 1;
        states[0][2] = 6;
    }
}

std::string ShortName(const std::string& path) { return path.substr(path.find_last_of(":\\/") + 1); }

std::string WriteMatrix(const Table& t, const std::string& path) {
    const std::string fault = ReplaceFile(path, ProbabilityFileBytes(t.ProbabilityMatrix));
    return fault.empty() ? fault : path + " can't be written: " + fault + ".";
}

enum class Outcome { Read, NoFile, Refused };

Outcome ReadMatrix(const std::string& path, MatrixCells& cells, std::string& fault) {
    std::string bytes;
    fault = ReadWholeFile(path, LongestFile, bytes);
    if (!fault.empty()) return Outcome::NoFile;
    return ProbabilitiesFromBytes(bytes, cells) ? Outcome::Read : Outcome::Refused;
}

Outcome TakeOver(Table& t, const std::string& path, std::string& fault) {
    const Outcome outcome = ReadMatrix(path, t.ProbabilityMatrix, fault);
    if (outcome == Outcome::Read) {
        t.ProbabilityFileName = path;
        t.ProbabilitiesChanged = false;
        t.GameChanged = true;
    }
    return outcome;
}

}  // namespace

std::string ProbabilityFileBytes(const MatrixCells& cells) {
    Record record;
    record.PutText(0, TitleLength, Title);
    std::string bytes(record.AllBytes());
    record = {};
    std::size_t at = 0;
    const auto flush = [&] {
        bytes += record.AllBytes();
        record = {};
        at = 0;
    };
    ForEachValue(cells, [&](std::int32_t value) {
        record.PutInt32(at, value);
        at += ValueLength;
        if (at == ValuesInRecord * ValueLength) flush();
    });
    if (at > 0) flush();
    return bytes;
}

bool ProbabilitiesFromBytes(std::string_view bytes, MatrixCells& cells) {
    if (Trim(FieldText(Record(bytes).Text(0, TitleLength))) != Title) return false;
    MatrixCells read = cells;
    std::size_t at = RecordLength;
    ForEachValue(read, [&](std::int32_t& value) {
        if (at + ValueLength <= bytes.size()) value = Record(bytes.substr(at, ValueLength)).Int32(0);
        at += ValueLength;
    });
    if (AnyNegative(read)) return false;
    KeepSoundStates(read);
    cells = read;
    return true;
}

std::string ProbabilityPath(const std::string& userFolder, const std::string& name) {
    if (userFolder.empty() || name.find_first_of(":\\/") != std::string::npos) return name;
    return (std::filesystem::path(userFolder) / name).string();
}

std::string ReadProbabilityFile(const std::string& path, MatrixCells& cells) {
    std::string fault;
    switch (ReadMatrix(path, cells, fault)) {
        case Outcome::Read:
            return {};
        case Outcome::NoFile:
            return path + " can't be read: " + fault + ".";
        case Outcome::Refused:
            break;
    }
    return path + " " + std::string(NotProbabilities);
}

bool OpenProbabilities(Table& t, const std::string& path) {
    std::string fault;
    return TakeOver(t, path, fault) == Outcome::Read;
}

bool OpenChosenProbabilities(Table& t, const std::string& path) {
    std::string fault;
    switch (TakeOver(t, path, fault)) {
        case Outcome::Read:
            return true;
        case Outcome::NoFile:
            ShowNote(t, "Error", "Path, file, or device error.", MsgButton::OkStop);
            return false;
        case Outcome::Refused:
            break;
    }
    ShowNote(t, "Unable to Open Probability File", ShortName(path) + "\n" + std::string(NotProbabilities),
             MsgButton::OkStop);
    return false;
}

std::string SaveProbabilities(Table& t, const std::string& path) {
    std::string fault = WriteMatrix(t, path);
    if (!fault.empty()) return fault;
    t.ProbabilityFileName = path;
    t.ProbabilitiesChanged = false;
    t.GameChanged = true;
    return {};
}

std::string SaveUnsavedMatrix(const Table& t, const std::string& path) { return WriteMatrix(t, path); }

bool OpenUnsavedMatrix(Table& t, const std::string& path) {
    std::string fault;
    if (ReadMatrix(path, t.ProbabilityMatrix, fault) != Outcome::Read) return false;
    t.ProbabilityFileName.clear();
    t.ProbabilitiesChanged = true;
    return true;
}

UnsavedChoice AskAboutUnsaved(Table& t) {
    if (!t.ProbabilitiesChanged) return UnsavedChoice::Nothing;
    Message question;
    question.Title = "Save Probabilities?";
    question.Text = "These numbers have not been saved.\nDo you want to save them now?";
    question.Buttons = MsgButton::YesNoQuestion | MsgButton::Cancel;
    switch (ShowMessage(t, question).Result) {
        case MsgAnswer::Yes:
            return UnsavedChoice::Save;
        case MsgAnswer::No:
            return UnsavedChoice::Discard;
        default:
            return UnsavedChoice::Cancel;
    }
}

void NewProbabilities(Table& t) {
    ResetProbabilityMatrix(t);
    t.ProbabilityFileName.clear();
    t.ProbabilitiesChanged = false;
    t.GameChanged = true;
}

std::string ProbabilityTitle(const Table& t) {
    return t.ProbabilityFileName.empty() ? "untitled" : t.ProbabilityFileName;
}

}  // namespace tarnwick
