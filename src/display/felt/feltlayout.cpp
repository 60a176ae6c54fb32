#include "display/felt/feltlayout.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <charconv>
#include <cmath>
#include <map>
#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// Reads the parts, and keeps the first fault.
class Reader {
  public:
    QString Error;

    void Fail(const QString& what) {
        if (Error.isEmpty()) Error = what;
    }

    QJsonArray Items(const QJsonObject& from, const char* name, int count = -1) {
        const QJsonArray items = from[QLatin1String(name)].toArray();
        if (items.isEmpty() || (count >= 0 && items.size() != count)) Fail(QStringLiteral("bad list %1").arg(name));
        return Error.isEmpty() ? items : QJsonArray();
    }

    double Number(const QJsonObject& from, const char* name, double otherwise = std::nan("")) {
        const double value = from[QLatin1String(name)].toDouble(otherwise);
        if (!(std::abs(value) < 1e6)) Fail(QStringLiteral("%1 is no number").arg(name));
        return std::abs(value) < 1e6 ? value : 0;
    }

    int Whole(const QJsonObject& from, const char* name, int low, int high, int otherwise) {
        const int value = from[QLatin1String(name)].toInt(otherwise);
        if (value < low || value > high) Fail(QStringLiteral("%1 is out of range").arg(name));
        return std::clamp(value, low, high);
    }

    QPointF Point(const QJsonValue& value) {
        const QJsonArray pair = value.toArray();
        if (pair.size() != 2 || !pair[0].isDouble() || !pair[1].isDouble()) Fail(QStringLiteral("bad point"));
        return {pair[0].toDouble(), pair[1].toDouble()};
    }

    LayoutOption Option(const QJsonObject& from) {
        static const std::map<QString, LayoutOption> names = {
            {"", LayoutOption::Always},       {"Big68", LayoutOption::Big68},
            {"Midway", LayoutOption::Midway}, {"NoMidway", LayoutOption::NoMidway},
            {"Fire", LayoutOption::Fire},     {"CenterProps", LayoutOption::CenterProps}};
        const auto found = names.find(from[QLatin1String("option")].toString());
        if (found == names.end()) Fail(QStringLiteral("unknown option"));
        return found == names.end() ? LayoutOption::Always : found->second;
    }

    /// "M0 0 L1 0 C1 1 2 2 3 3 Z", absolute.
    QPainterPath Path(const QJsonValue& value) {
        const std::string text = value.toString().toStdString();
        const char* at = text.data();
        const char* const end = at + text.size();
        QPainterPath path;
        while (at != end && Error.isEmpty()) {
            const char command = *at++;
            if (command == 'Z') {
                path.closeSubpath();
            } else if (command != ' ') {
                const int count = command == 'C' ? 6 : 2;
                std::array<double, 6> n{};
                for (int i = 0; i < count; ++i) {
                    while (at != end && *at == ' ') ++at;
                    const auto [next, fault] = std::from_chars(at, end, n[At(i)]);
                    if (fault != std::errc() || !(std::abs(n[At(i)]) < 1e6)) Fail(QStringLiteral("bad path"));
                    at = next;
                }
                if (command == 'M') {
                    path.moveTo(n[0], n[1]);
                } else if (command == 'L') {
                    path.lineTo(n[0], n[1]);
                } else if (command == 'C') {
                    path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]);
                } else {
                    Fail(QStringLiteral("bad path"));
                }
            }
        }
        if (path.isEmpty()) Fail(QStringLiteral("empty path"));
        return path;
    }
};

FeltRegion ReadRegion(Reader& in, const QJsonObject& o) {
    FeltRegion region;
    region.Name = o[QLatin1String("name")].toString();
    region.BetRow = in.Whole(o, "row", 1, Row::LastBet, 0);
    region.Player = in.Whole(o, "player", 0, 8, 0);
    region.Path = in.Path(o[QLatin1String("path")]);
    region.Seed = in.Point(o[QLatin1String("seed")]);
    region.Color = in.Whole(o, "color", 0, 42, -1);
    region.CheckDiameter = in.Number(o, "check");
    region.Option = in.Option(o);
    return region;
}

FeltLabel ReadLabel(Reader& in, const QJsonObject& o) {
    static const std::map<QString, LabelKind> kinds = {{"text", LabelKind::Text},
                                                       {"caption", LabelKind::Caption},
                                                       {"payoff", LabelKind::Payoff},
                                                       {"fieldpays", LabelKind::FieldPays},
                                                       {"rail", LabelKind::RailLetters}};
    FeltLabel label;
    const auto kind = kinds.find(o[QLatin1String("kind")].toString());
    if (kind == kinds.end()) {
        in.Fail(QStringLiteral("unknown kind of label"));
    } else {
        label.Kind = kind->second;
    }
    label.Text = o[QLatin1String("text")].toString();
    label.Centre = {in.Number(o, "x"), in.Number(o, "y")};
    label.CapHeight = in.Number(o, "cap");
    label.Width = in.Number(o, "width", 0);
    label.Angle = in.Number(o, "angle");
    label.Color = in.Whole(o, "color", 0, 42, -1);
    label.Index = in.Whole(o, "index", 0, Row::LastBet, 0);
    if (label.Kind == LabelKind::FieldPays && (label.Index < 1 || label.Index > 21)) in.Fail(QStringLiteral("index"));
    label.Mark = in.Whole(o, "mark", 0, 12, 0);
    label.Fire = in.Whole(o, "fire", -1, 5, -1);
    label.Option = in.Option(o);
    label.Region = o[QLatin1String("region")].toString();
    return label;
}

FeltDice ReadDice(Reader& in, const QJsonObject& o) {
    FeltDice dice;
    const QPointF faces = in.Point(o[QLatin1String("faces")]);
    for (const double face : {faces.x(), faces.y()}) {
        if (!(face >= 0 && face <= 6)) in.Fail(QStringLiteral("bad face of a die"));
    }
    if (in.Error.isEmpty()) dice.Faces = {static_cast<int>(faces.x()), static_cast<int>(faces.y())};
    dice.Centre = {in.Number(o, "x"), in.Number(o, "y")};
    dice.Size = in.Number(o, "size");
    dice.Gap = in.Number(o, "gap");
    dice.Angle = in.Number(o, "angle");
    dice.Color = in.Whole(o, "color", 0, 42, -1);
    dice.PipColor = in.Whole(o, "pips", 0, 42, -1);
    dice.Option = in.Option(o);
    dice.Region = o[QLatin1String("region")].toString();
    return dice;
}

FeltLine ReadLine(Reader& in, const QJsonObject& o) {
    FeltLine line;
    if (o.contains(QLatin1String("radius"))) {
        line.Centre = {in.Number(o, "x"), in.Number(o, "y")};
        line.Radius = in.Number(o, "radius");
        line.Path.addEllipse(line.Centre, line.Radius, line.Radius);
    } else {
        line.Path = in.Path(o[QLatin1String("path")]);
    }
    line.Width = in.Number(o, "width");
    line.Mark = in.Whole(o, "mark", 0, 12, 0);
    line.Fire = in.Whole(o, "fire", -1, 5, -1);
    line.Option = in.Option(o);
    return line;
}

RailSeat ReadSeat(Reader& in, const QJsonObject& o) {
    RailSeat seat;
    const QJsonArray checks = in.Items(o, "checks", 5);
    const QJsonArray stacks = in.Items(o, "stacks", 4);
    for (int i = 0; i < checks.size(); ++i) seat.Checks[At(i + 1)] = in.Point(checks[i]);
    for (int i = 0; i < stacks.size(); ++i) seat.Stacks[At(i + 1)] = in.Point(stacks[i]);
    const QJsonObject name = o[QLatin1String("name")].toObject();
    seat.NameCentre = {in.Number(name, "x"), in.Number(name, "y")};
    seat.NameAngle = in.Number(name, "angle");
    seat.NameCapHeight = in.Number(name, "cap");
    seat.NameWidth = in.Number(name, "width");
    seat.Area = in.Path(o[QLatin1String("area")]);
    return seat;
}

void ReadPuck(Reader& in, const QJsonObject& o, FeltLayout& felt) {
    felt.PuckRadius = in.Number(o, "radius");
    const QJsonArray on = in.Items(o, "on", 6);
    const QJsonArray off = in.Items(o, "off", 2);
    for (int end = 0; end < off.size(); ++end) {
        felt.PuckOff[At(end)] = in.Point(off[end]);
        for (int i = 0; i < on.size(); ++i) felt.PuckOn[At(i)][At(end)] = in.Point(on[i].toArray()[end]);
    }
}

/// Rows that other rows' boxes take bets for have the checks of those boxes.
void SpreadDiameters(FeltLayout& felt) {
    for (const FeltRegion& region : felt.Regions) felt.CheckDiameter[At(region.BetRow)] = region.CheckDiameter;
    for (int i = 0; i < 6; ++i) {
        felt.CheckDiameter[At(Row::DontCome4 + i)] = felt.CheckDiameter[At(Row::DontCome4Odds + i)];
        felt.CheckDiameter[At(Row::Buy4 + i)] = felt.CheckDiameter[At(Row::Place4 + i)];
    }
    felt.CheckDiameter[Row::DontPassOdds] = felt.CheckDiameter[Row::DontPass];
}

}  // namespace

bool IsShown(const Table& t, LayoutOption option) {
    switch (option) {
        case LayoutOption::Always:
            return true;
        case LayoutOption::Big68:
            return t.UseBig68;
        case LayoutOption::Midway:
            return t.UseMidwayBet;
        case LayoutOption::NoMidway:
            return !t.UseMidwayBet;
        case LayoutOption::Fire:
            return t.UseFireBet;
        case LayoutOption::CenterProps:
            return t.DisplayCenterProps;
    }
    return true;
}

std::optional<FeltLayout> ReadFeltLayout(const QByteArray& json, QString& error) {
    QJsonParseError fault;
    const QJsonObject root = QJsonDocument::fromJson(json, &fault).object();
    if (root.isEmpty()) {
        error = fault.error == QJsonParseError::NoError ? QStringLiteral("no layout") : fault.errorString();
        return std::nullopt;
    }
    Reader in;
    FeltLayout felt;
    for (const auto& item : in.Items(root, "regions")) felt.Regions.push_back(ReadRegion(in, item.toObject()));
    for (const auto& item : in.Items(root, "labels")) felt.Labels.push_back(ReadLabel(in, item.toObject()));
    for (const auto& item : in.Items(root, "dice")) felt.Dice.push_back(ReadDice(in, item.toObject()));
    for (const auto& item : in.Items(root, "lines")) felt.Lines.push_back(ReadLine(in, item.toObject()));
    const QJsonArray rows = in.Items(root, "stacks", Row::LastBet);
    for (int i = 0; i < rows.size(); ++i) {
        for (int p = 1; p <= 8; ++p) felt.Spots[At(i + 1)][At(p)] = in.Point(rows[i].toArray()[p - 1]);
    }
    const QJsonArray seats = in.Items(root, "seats", 8);
    for (int i = 0; i < seats.size(); ++i) felt.Seats[At(i + 1)] = ReadSeat(in, seats[i].toObject());
    const QJsonArray thrown = in.Items(root, "thrown", Positions);
    for (int i = 0; i < thrown.size(); ++i) {
        for (int die = 0; die < 2; ++die) felt.ThrownDice[At(i)][At(die)] = in.Point(thrown[i].toArray()[die]);
    }
    ReadPuck(in, root[QLatin1String("puck")].toObject(), felt);
    SpreadDiameters(felt);
    error = in.Error;
    if (!error.isEmpty()) return std::nullopt;
    return felt;
}

const FeltLayout& TheFelt() {
    static const FeltLayout felt = [] {
        QFile file(QStringLiteral(":/felt.json"));
        QString error = file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
        auto read = error.isEmpty() ? ReadFeltLayout(file.readAll(), error) : std::nullopt;
        if (!read) qFatal("The layout of the table can't be read: %s", qPrintable(error));
        return *std::move(read);
    }();
    return felt;
}

std::optional<QPointF> BetSpot(const Table& t, int p, int row) {
    if (p < 1 || p > 8) return std::nullopt;
    if (IsLayoutRow(row)) {
        const QPointF left(t.BetSpotX[At(p)][At(row)], t.BetSpotY[At(p)][At(row)]);
        return t.AutoArrangeChips || left.isNull() ? TheFelt().Spots[At(row)][At(p)] : left;
    }
    for (int slot = 1; slot <= 4; ++slot) {
        if (t.VisibleStack[At(p)][At(slot)] == row && IsStack(row)) return TheFelt().Seats[At(p)].Stacks[At(slot)];
    }
    return std::nullopt;
}

}  // namespace tarnwick
