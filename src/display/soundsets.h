// The sets of sounds that were found, by the lists that the settings count in.
#pragma once

#include <QHash>
#include <QStringList>
#include <array>
#include <cstdint>
#include <string>

#include "table/crapcnst.h"

namespace tarnwick {

enum class SoundList { StickPersons, Dice, Checks, Wins };
constexpr std::array<SoundList, 4> AllSoundLists = {SoundList::StickPersons, SoundList::Dice, SoundList::Checks,
                                                    SoundList::Wins};

/// The setting that counts in `list`.
std::int32_t& SoundIndex(Settings& settings, SoundList list);
std::int32_t SoundIndex(const Settings& settings, SoundList list);

/// Where sounds lie: in the program itself, beside it, and in the user's folder.
QStringList SoundFolders(const std::string& userFolder);

class SoundLibrary {
  public:
    /// No sounds at all.
    SoundLibrary() : SoundLibrary(QStringList()) {}
    /// Looks through `folders`. A file of a later folder stands for one of the same name in an earlier one; capitals
    /// make no difference.
    explicit SoundLibrary(const QStringList& folders);

    /// What a list shows, by index: "< none >", the sets in the order of the alphabet up to the first point of their
    /// names, and "< random >", except of stick persons. Where there is no set there is "< none >" alone.
    QStringList Names(SoundList list) const;
    /// 0 when there is no set, else the first set; of dice the one called "soft", if it is there.
    int FirstChoice(SoundList list) const;
    /// The nearest index that the list has.
    int Within(SoundList list, int index) const;

    /// The file of call 2..18 of stick person `index`; empty: none.
    QString StickCall(int index, int number) const;
    /// The file that `index` of another list means; empty: none. `draw`, any number, chooses for "< random >".
    QString File(SoundList list, int index, std::uint32_t draw) const;
    /// The bank's own sound, "Chips.win".
    QString BankSound() const;

  private:
    const QStringList& SetsOf(SoundList list) const { return Sets[static_cast<std::size_t>(list)]; }
    QString PathOf(const QString& name) const { return Paths.value(name.toLower()); }

    std::array<QStringList, 4> Sets;  ///< names without number and extension
    QHash<QString, QString> Paths;    ///< by file name in small letters
};

/// Sets the four settings to the first choices, or brings them into the lists.
void ChooseFirstSounds(Table& t, const SoundLibrary& sets);
void KeepSoundsWithin(Table& t, const SoundLibrary& sets);

}  // namespace tarnwick
