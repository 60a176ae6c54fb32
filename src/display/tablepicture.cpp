#include "display/tablepicture.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPainter>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>
#include <memory>

#include "display/felt/feltcolors.h"
#include "display/felt/feltpainter.h"
#include "display/felt/feltsurface.h"
#include "display/felt/felttransform.h"
#include "display/felt/feltview.h"
#include "display/felt/statusboxes.h"
#include "display/felt/tablepainter.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

namespace {

struct Request {
    QString File;
    int Width = 0;  ///< of the table, 0: fitted
    int Angle = 0;
    QSize Size{1248, 700};
    double PixelRatio = 1;
    int Preset = -1;
    int Spotlight = 0;
    int Floor = 0;
    bool Numbers = false;
    bool WholeWindow = false;  ///< with menu bar and status line
};

/// Reads "1248x560"; nothing for other text or a size that no window has.
std::optional<QSize> SizeOf(const QString& text) {
    const auto parts = text.split(QLatin1Char('x'));
    if (parts.size() != 2) return std::nullopt;
    bool wideOk = false;
    bool highOk = false;
    const QSize size(parts[0].toInt(&wideOk), parts[1].toInt(&highOk));
    const bool fits = size.width() >= 50 && size.width() <= 10000 && size.height() >= 50 && size.height() <= 10000;
    return wideOk && highOk && fits ? std::optional(size) : std::nullopt;
}

/// Takes the options, or says in `fault` what is wrong.
Request ReadRequest(const QStringList& arguments, QString& fault) {
    QCommandLineParser parser;
    const QString value = QStringLiteral("value");
    for (const char* name : {"picture", "width", "angle", "size", "ratio", "colors", "spotlight", "floor"}) {
        parser.addOption({QString::fromLatin1(name), QString(), value});
    }
    for (const char* name : {"numbers", "window"}) parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
    Request request;
    if (!parser.parse(arguments)) fault = parser.errorText();
    const auto number = [&](const char* name, int low, int high, int otherwise) {
        const QString text = parser.value(QString::fromLatin1(name));
        if (text.isEmpty()) return otherwise;
        bool ok = false;
        const int n = text.toInt(&ok);
        if (!ok || n < low || n > high)
            fault = QStringLiteral("--%1 takes %2 to %3").arg(QLatin1String(name)).arg(low).arg(high);
        return n;
    };
    request.File = parser.value(QStringLiteral("picture"));
    request.Width = number("width", 500, 5000, 0);
    request.Angle = number("angle", -360, 360, 0);
    request.PixelRatio = number("ratio", 100, 400, 100) / 100.0;
    request.Preset = number("colors", 0, static_cast<int>(ColorPresets().size()) - 1, -1);
    request.Spotlight = number("spotlight", 0, 3, 0);
    request.Floor = number("floor", 0, static_cast<int>(FloorTextures().size()) - 1, 0);
    request.Numbers = parser.isSet(QStringLiteral("numbers"));
    request.WholeWindow = parser.isSet(QStringLiteral("window"));
    if (parser.isSet(QStringLiteral("size"))) {
        const auto size = SizeOf(parser.value(QStringLiteral("size")));
        if (!size) fault = QStringLiteral("--size takes WIDTHxHEIGHT, 50 to 10000 each");
        request.Size = size.value_or(request.Size);
    }
    return request;
}

void PlaceBets(Table& t) {
    struct Wager {
        int P, BetRow, Units;
    };
    // Flat bets first: odds and Come bets need them.
    constexpr Wager wagers[] = {
        {1, Row::PassLine, 25},     {2, Row::PassLine, 10},     {3, Row::PassLine, 15},     {4, Row::DontPass, 30},
        {5, Row::PassLine, 5},      {6, Row::DontPass, 10},     {7, Row::PassLine, 40},     {8, Row::PassLine, 12},
        {1, Row::PassLineOdds, 50}, {2, Row::PassLineOdds, 20}, {3, Row::PassLineOdds, 30}, {7, Row::PassLineOdds, 75},
        {1, Row::Place4 + 3, 30},   {1, Row::Place4 + 1, 25},   {3, Row::Place4 + 3, 12},   {2, Row::Place4 + 5, 10},
        {5, Row::Place4 + 2, 18},   {5, Row::Place4 + 3, 18},   {7, Row::Place4, 25},       {7, Row::Place4 + 4, 50},
        {8, Row::Place4 + 3, 6},    {6, Row::Lay4 + 1, 60},     {4, Row::Lay4 + 5, 40},     {2, Row::Buy4, 30},
        {3, Row::Come, 15},         {8, Row::Come, 10},         {1, Row::Field, 5},         {6, Row::Field, 10},
        {2, Row::Big6, 6},          {7, Row::Big8, 12},         {5, Row::Midway, 5},        {1, Row::Hard6, 5},
        {3, Row::Hard8, 10},        {7, Row::Hard4, 1},         {8, Row::Hard10, 2},        {2, Row::Seven, 5},
        {4, Row::Craps, 3},         {6, Row::CandE, 2},         {3, Row::CandE, 4},         {5, Row::Horn, 4},
        {7, Row::World, 5},         {1, Row::Hop44, 2},         {8, Row::Hop26, 1},         {2, Row::AllSmall, 5},
        {2, Row::AllTall, 5},       {2, Row::MakeAll, 5},       {5, Row::Over7, 3},         {7, Row::Eleven, 1},
    };
    for (const Wager& wager : wagers) CheckBetRules(t, wager.P, wager.BetRow, Dollars(wager.Units), Speak::Silent);
}

}  // namespace

void PlayTypicalGame(Table& t) {
    constexpr const char* names[] = {"", "Ann", "Bob", "Carla", "Dmitri", "Erin", "Felix", "Gwen", "Hugo"};
    for (int p = 1; p <= 8; ++p) AddPlayer(t, p, names[p], Dollars(600 + 85 * p));
    PlaceBets(t);
    // A point of 6 after a few rolls.
    t.Point = t.PrevPoint = 6;
    t.Shooter = t.HandShooter = 3;
    t.ActivePlayer = 1;
    t.SelectedCheck = 2;
    t.Die1 = 2;
    t.Die2 = 4;
    t.DiceTotal = 6;
    ApplyPointWorking(t);
    PlaceBets(t);
    for (const auto& [p, row, units] : {std::array{1, 22, 20}, {3, 23, 15}, {8, 20, 10}, {6, 7, 25}, {1, 28, 40}}) {
        SetBetAmount(t, p, row, Dollars(units));
    }
    SetBetWorking(t, 5, Row::Place4 + 2, -1);
    SetBetWorking(t, 8, Row::Hard10, 2);
    SetBetAmount(t, 1, 101, Dollars(136));
    SetBetAmount(t, 5, 102, Dollars(57));
    t.MarkedNumbers = 1 << 3 | 1 << 5 | 1 << 6 | 1 << 9;
    t.PointsMadeMask = 1 << 1 | 1 << 3;
    t.PointsMadeCount = 2;
}

QImage TablePicture(Table& t, QSize size, double pixelRatio) {
    QImage image = PaintFelt(t, size, pixelRatio);
    QPainter painter(&image);
    TablePainter().Paint(painter, t, pixelRatio, {});
    if (t.StatusAlign == StatusPlace::NearPlayers) PaintBoxesNearPlayers(painter, t, size, painter.font());
    return image;
}

namespace {

/// Plays the game of the picture and sets what was asked for.
void PrepareTable(Table& t, const Request& request) {
    PlayTypicalGame(t);
    if (request.Preset >= 0) SetColorPreset(t, request.Preset);
    t.SpotlightLevel = request.Spotlight;
    t.TexturePicture = request.Floor;
    t.DisplayBetsAsNumbers = request.Numbers;
    t.StatusAlign = StatusPlace::NearPlayers;
    SetTableAngle(t, request.Angle);
}

void PlaceTable(Table& t, const Request& request, QSize size) {
    HeldCentre held;
    AutoSize(t, held, size);
    if (request.Width > 0) SetTableWidth(t, request.Width);
    CenterTable(t, held, size);
    t.AutoSizeTable = false;
}

QImage PictureOfTable(const Request& request) {
    SilentScreen front;
    const auto table = std::make_unique<Table>();
    SubMain(*table, &front);
    PrepareTable(*table, request);
    PlaceTable(*table, request, request.Size);
    return TablePicture(*table, request.Size, request.PixelRatio);
}

QImage PictureOfWindow(const Request& request) {
    const QTemporaryDir folder;  // nobody's games
    MainWindow window(folder.path().toStdString());
    Table& t = window.CurrentGame().T();
    PrepareTable(t, request);
    t.Front->RefreshOpenWindows();
    window.resize(request.Size);
    window.show();
    QCoreApplication::processEvents();
    PlaceTable(t, request, window.Felt().size());
    window.Felt().RefreshTable();
    window.Felt().Sharpen();
    return window.grab().toImage();
}

}  // namespace

std::optional<int> RunPictureCommand(int argc, char** argv) {
    bool asked = false;
    for (int i = 1; i < argc; ++i) asked = asked || std::strncmp(argv[i], "--picture", 9) == 0;
    if (!asked) return std::nullopt;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QString fault;
    const Request request = ReadRequest(QGuiApplication::arguments(), fault);
    if (fault.isEmpty() && request.File.isEmpty()) fault = QStringLiteral("--picture takes the name of a file");
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "tarnwick: %s\n", qPrintable(fault));
        return 2;
    }
    if ((request.WholeWindow ? PictureOfWindow(request) : PictureOfTable(request)).save(request.File)) return 0;
    std::fprintf(stderr, "tarnwick: can't write %s\n", qPrintable(request.File));
    return 1;
}

}  // namespace tarnwick
