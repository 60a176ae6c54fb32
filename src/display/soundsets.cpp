#include "display/soundsets.h"

#include <QCoreApplication>
#include <QDir>
#include <algorithm>

#include "display/words.h"
#include "files/filechooser.h"

namespace tarnwick {

namespace {

constexpr std::array<const char*, 4> Extensions = {".stk", ".dce", ".chp", ".win"};

QString ExtensionOf(SoundList list) { return QLatin1String(Extensions[static_cast<std::size_t>(list)]); }

/// By the alphabet, and each once, whatever the capitals.
QStringList InOrder(const std::vector<std::string>& names) {
    QStringList sorted;
    for (const std::string& name : names) sorted << Words(name);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    const auto same = [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; };
    sorted.erase(std::unique(sorted.begin(), sorted.end(), same), sorted.end());
    return sorted;
}

template <class AnySettings>
auto& IndexIn(AnySettings& settings, SoundList list) {
    switch (list) {
        case SoundList::Dice:
            return settings.DiceSoundIndex;
        case SoundList::Checks:
            return settings.CheckSoundIndex;
        case SoundList::Wins:
            return settings.WinSoundIndex;
        default:
            return settings.StickPersonIndex;
    }
}

}  // namespace

std::int32_t& SoundIndex(Settings& settings, SoundList list) { return IndexIn(settings, list); }
std::int32_t SoundIndex(const Settings& settings, SoundList list) { return IndexIn(settings, list); }

QStringList SoundFolders(const std::string& userFolder) {
    QStringList folders = {QStringLiteral(":/sounds"), QCoreApplication::applicationDirPath()};
    if (!userFolder.empty()) folders << Words(userFolder);
    return folders;
}

SoundLibrary::SoundLibrary(const QStringList& folders) {
    QStringList patterns;
    for (const char* extension : Extensions) patterns << QLatin1Char('*') + QLatin1String(extension);
    std::vector<std::string> names;
    for (const QString& folder : folders) {
        const QDir place(folder);
        const QStringList found = place.entryList(patterns, QDir::Files, QDir::Name);
        for (const QString& name : found) {
            Paths.insert(name.toLower(), place.absoluteFilePath(name));
            names.push_back(Utf8(name));
        }
    }
    Sets[0] = InOrder(StickPersonSets(names));
    for (const SoundList list : {SoundList::Dice, SoundList::Checks, SoundList::Wins}) {
        const auto i = static_cast<std::size_t>(list);
        Sets[i] = InOrder(SoundSets(names, Extensions[i]));
    }
}

QStringList SoundLibrary::Names(SoundList list) const {
    QStringList names = {QStringLiteral("< none >")};
    for (const QString& set : SetsOf(list)) names << set.section(QLatin1Char('.'), 0, 0);
    if (list != SoundList::StickPersons && names.size() > 1) names << QStringLiteral("< random >");
    return names;
}

int SoundLibrary::FirstChoice(SoundList list) const {
    std::vector<std::string> sets;
    for (const QString& set : SetsOf(list)) sets.push_back(Utf8(set));
    return FirstSoundSet(sets, list == SoundList::Dice ? "soft" : "");
}

int SoundLibrary::Within(SoundList list, int index) const {
    return std::clamp(index, 0, static_cast<int>(Names(list).size()) - 1);
}

QString SoundLibrary::StickCall(int index, int number) const {
    const QStringList& persons = SetsOf(SoundList::StickPersons);
    if (index < 1 || index > persons.size() || number < 2 || number > 18) return {};
    return PathOf(persons.at(index - 1) + QString::number(number).rightJustified(2, QLatin1Char('0')) +
                  ExtensionOf(SoundList::StickPersons));
}

QString SoundLibrary::File(SoundList list, int index, std::uint32_t draw) const {
    const QStringList& sets = SetsOf(list);
    const auto count = static_cast<int>(sets.size());
    if (list == SoundList::StickPersons || count == 0 || index < 1 || index > count + 1) return {};
    const int set = index <= count ? index - 1 : static_cast<int>(draw % static_cast<std::uint32_t>(count));
    return PathOf(sets.at(set) + ExtensionOf(list));
}

QString SoundLibrary::BankSound() const { return PathOf(QStringLiteral("Chips.win")); }

void ChooseFirstSounds(Table& t, const SoundLibrary& sets) {
    for (const SoundList list : AllSoundLists) SoundIndex(t, list) = sets.FirstChoice(list);
}

void KeepSoundsWithin(Table& t, const SoundLibrary& sets) {
    for (const SoundList list : AllSoundLists) SoundIndex(t, list) = sets.Within(list, SoundIndex(t, list));
}

}  // namespace tarnwick
