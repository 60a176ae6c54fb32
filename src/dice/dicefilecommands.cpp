#include "dice/dicefilecommands.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "dice/dicefile.h"
#include "table/messages.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

/// Shows what went wrong, if anything did; true when nothing did.
bool Tell(Table& t, const char* title, const std::string& fault) {
    if (fault.empty()) return true;
    ShowNote(t, title, fault);
    return false;
}

std::string Clause(std::string fault) {
    // What a check of a file says is a text of its own.
    if (!fault.empty() && fault.find('\n') == std::string::npos) fault = "The rolls can't be copied: " + fault + ".";
    return fault;
}

bool IsOpenFile(const Table& t, const std::string& path) {
    return !t.DiceRollFileName.empty() && IsSameFile(path, t.DiceRollFileName);
}

}  // namespace

bool OpenDiceFileCommand(Table& t, const std::string& path) {
    if (GuardCommand(t)) return false;
    return Tell(t, UnableToOpenDiceFile.data(), OpenDiceRollFile(t, path));
}

bool CloseDiceFileCommand(Table& t) {
    if (t.DiceRollFileName.empty() || GuardCommand(t)) return false;
    if (t.DiceFileMode != 0) RewindQuestion(t);
    if (t.DiceFileMode != 0) return false;
    CloseDiceRollFile(t);
    return true;
}

bool DiceRecorderCommand(Table& t, int mode) {
    if (GuardCommand(t)) return false;
    if (mode != 0) return SetDiceFileMode(t, mode);
    if (t.DiceFileMode != 0) RewindQuestion(t);
    return t.DiceFileMode == 0;
}

bool CopyToRollFileCommand(Table& t, RollSelection selection, const std::string& path) {
    if (GuardCommand(t)) return false;
    if (IsOpenFile(t, path)) {
        ShowNote(t, DiceFileTitle::CopyToRollFile,
                 "Can't use the Copy to Dice Roll File command to copy rolls to a file that's open and in use.\n\n"
                 "Please select another file name or use the Copy and Paste commands to modify the open file.");
        return false;
    }
    std::error_code error;
    if (std::filesystem::exists(path, error) &&
        !AskYesNo(t, DiceFileTitle::CopyToRollFile, path + "\nis already on file.\nDo you want to copy over it?"))
        return false;
    return Tell(t, DiceFileTitle::CopyToRollFile, Clause(CopyToRollFile(t, selection, path)));
}

bool CopyToTextFileCommand(Table& t, RollSelection selection, const std::string& path, const std::string& format) {
    if (GuardCommand(t)) return false;
    const RollFormat lines(format);
    if (!Tell(t, DiceFileTitle::CopyToTextFile, lines.Refusal())) return false;
    const bool renumber = lines.HasRollNumber() && HeldSelection(t, selection).First != 1 &&
                          AskYesNo(t, DiceFileTitle::CopyToTextFile,
                                   "The rolls you've selected do not begin with roll #1.  Would you like to renumber "
                                   "them in the output starting with #1?");
    return Tell(t, DiceFileTitle::CopyToTextFile, Clause(CopyToTextFile(t, selection, path, lines, renumber)));
}

bool PasteFromRollFileCommand(Table& t, RollSelection& selection, RollEntry entry, const std::string& path) {
    if (GuardCommand(t)) return false;
    return Tell(t, DiceFileTitle::PasteFromRollFile, Clause(PasteFromRollFile(t, selection, entry, path)));
}

bool PasteFromTextFileCommand(Table& t, RollSelection& selection, RollEntry entry, const std::string& path,
                              const std::string& workFolder) {
    if (GuardCommand(t)) return false;
    return Tell(t, DiceFileTitle::PasteFromTextFile, Clause(PasteFromTextFile(t, selection, entry, path, workFolder)));
}

bool AskRollFormat(Table& t, std::string& format) {
    Message question;
    question.Title = DiceFileTitle::Format;
    question.Text = "Enter the format that you'd like to use to print rolls \nand/or to output rolls to a text file. ";
    question.Buttons = MsgButton::InputQuestion;
    question.Input = format;
    while (true) {
        const Answer answer = ShowMessage(t, question);
        if (answer.Result != MsgAnswer::Ok) return false;
        const std::string refusal = RollFormat(answer.Input).Refusal();
        if (refusal.empty()) {
            format = answer.Input;
            return true;
        }
        ShowNote(t, DiceFileTitle::Format, refusal);
        if (answer.Input == question.Input) return false;  // nobody is there to mend it
        question.Input = answer.Input;
    }
}

bool MayPrintRolls(Table& t, RollSelection selection) {
    const char* refusal = t.DiceFileLength == 0                    ? "There are no dice rolls to print."
                          : HeldSelection(t, selection).Count == 0 ? "You haven't selected any dice rolls to print."
                                                                   : nullptr;
    if (refusal != nullptr) ShowNote(t, DiceFileTitle::Print, refusal);
    return refusal == nullptr;
}

}  // namespace tarnwick
