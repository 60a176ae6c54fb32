#include "lab/game.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "files/atomicfile.h"
#include "files/gamefile.h"
#include "files/gameimage.h"
#include "files/paths.h"
#include "lab/json.h"
#include "lab/texttable.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

constexpr std::uintmax_t LongestGame = 16u * 1024 * 1024;

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// Tells on standard error what there is to tell, and leaves everything as it is.
struct TellingScreen : SilentScreen {
    explicit TellingScreen(const std::string& command) : Command(command) { KeepShown = false; }
    Answer Show(const Message& message) override {
        std::fprintf(stderr, "tarnwick-lab %s: %s\n", Command.c_str(), OneLine(message.Text).c_str());
        return SilentScreen::Show(message);
    }
    const std::string& Command;
};

int Refuse(const std::string& file, const std::string& why) {
    std::fprintf(stderr, "tarnwick-lab game: %s: %s\n", file.c_str(), why.c_str());
    return 2;
}

/// Names the fields of a player's block by the player.
class Namer {
  public:
    std::string NameOf(const GameField& field) {
        if (field.Record <= FixedRecords || field.Name.rfind("Path[", 0) == 0) return field.Name;
        if (field.Name == "Position") Position = field.Value;
        return "Player[" + Position + "]." + field.Name;
    }

  private:
    std::string Position;
};

void PrintText(const std::string& where, const std::string& name, const GameField& field) {
    const std::string line = where + std::string(where.size() < 9 ? 9 - where.size() : 1, ' ') + name + " = " +
                             (field.IsText ? "\"" + field.Value + "\"" : field.Value) + "\n";
    std::fputs(line.c_str(), stdout);
}

void PrintFields(GameImage& image, const GameOptions& options, bool whole) {
    JsonWriter json;
    json.BeginObject().Field("file", options.File).Field("whole", whole).Key("fields").BeginList();
    Namer namer;
    GameLister lister;
    lister.Take = [&](const GameField& field) {
        const std::string name = namer.NameOf(field);
        if (options.Json) {
            json.BeginObject().Field("record", field.Record).Field("byte", field.Byte).Field("name", name);
            json.Field("value", field.Value).EndObject();
            return;
        }
        const bool element = field.Name.find('[') != std::string::npos;
        if (options.All || !element || !field.IsZero) {
            PrintText(std::to_string(field.Record) + ":" + std::to_string(field.Byte), name, field);
        }
    };
    VisitGame(lister, image);
    if (options.Json) std::printf("%s\n", json.EndList().EndObject().Text().c_str());
}

}  // namespace

int ShowGame(const GameOptions& options) {
    std::string bytes;
    const std::string fault = ReadWholeFile(options.File, LongestGame, bytes);
    if (!fault.empty()) return Refuse(options.File, fault);
    switch (FormOfGame(bytes)) {
        case GameForm::NoGame:
            return Refuse(options.File, "this is not a Tarnwick game file");
        case GameForm::OtherVersion:
            return Refuse(options.File, "this is a file of another version, or no game");
        case GameForm::Game:
            break;
    }
    const auto table = std::make_unique<Table>();
    SubMain(*table, nullptr);
    GameImage image = ImageOf(*table);
    const bool whole = ReadGame(bytes, image);
    PrintFields(image, options, whole);
    if (!whole) std::fprintf(stderr, "tarnwick-lab game: %s: the file is cut short\n", options.File.c_str());
    return whole ? 0 : 1;
}

std::string LabUserFolder() {
    return UserFolder(Variable("TARNWICK_HOME"), Variable("XDG_DATA_HOME"), Variable("HOME"));
}

std::string OpenGameFor(const std::string& command, Table& t, const std::string& path) {
    TellingScreen screen(command);
    t.Front = &screen;
    const bool opened = OpenGame(t, path, LabUserFolder());
    t.Front = nullptr;
    return opened ? std::string() : path + " can't be used";
}

}  // namespace tarnwick::lab
