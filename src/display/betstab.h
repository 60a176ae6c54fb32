// Tab "Bets" of the configuration window: limits, odds, rules, vigs and what works on a come-out roll.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/configure.h"
#include "display/configtab.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace tarnwick {

class WorkingList;
enum class WorkingChoice : std::uint8_t;

class BetsTab final : public ConfigTab {
    Q_OBJECT

  public:
    explicit BetsTab(Table& t, QWidget* parent = nullptr);
    ~BetsTab() override;

    void ShowSettings() override;
    bool MayLeave() override;

  private:
    enum class Kind { Limit, Amount, Multiple, Percent, FireLimit };
    struct Field {
        QLineEdit* Box;
        const char* Setting;
        const char* Name;  ///< in messages
        Kind Is;
    };
    struct Check {
        QCheckBox* Box;
        const char* Setting;
        bool Asks;  ///< while bets stand on it
    };
    struct Option {
        QRadioButton* Button;
        const char* Setting;
        const char* Value;
    };
    struct List {
        QComboBox* Box;
        const char* Setting;
    };

    QWidget* MakeLimits();
    QWidget* MakeOdds();
    QWidget* MakeRules();
    QWidget* MakeOptionalBets();
    QWidget* MakeVig(const char* title, const char* family);
    QWidget* MakeComeOutList();
    QLineEdit* AddField(const char* setting, const char* name, Kind kind);
    QCheckBox* AddCheck(QBoxLayout& layout, const char* caption, const char* setting, bool asks = false);
    QRadioButton* AddOption(const QString& caption, const char* setting, const char* value);
    QComboBox* AddList(const char* setting, std::initializer_list<const char*> entries);

    /// Takes what was typed. False after a message, with the field keeping it.
    bool Commit(const Field& field);
    std::string FormFault(const Field& field, std::optional<currency> value) const;
    bool Take(const Field& field, currency value);
    static std::string TitleOf(const Field& field);
    /// Takes the limits as soon as they can stand together; the fault while they can't.
    SettingFault TakeLimits();
    void SwitchCheck(const Check& check, bool on);
    /// A setting to a value by the core; tells why it was refused.
    bool Set(std::string_view setting, std::string_view value);
    QString TextOf(const Field& field) const;
    void ShowField(const Field& field);
    void ShowChoices();
    void ShowFireLimit();
    void ShowComeOut();
    void SetComeOut(const std::vector<int>& rows, WorkingChoice choice);
    bool Fault(const std::string& title, const std::string& text, QWidget* where);

    std::vector<Field> Fields;  ///< the three limits first
    std::vector<Check> Checks;
    std::vector<Option> Options;
    std::vector<List> Lists;
    QLabel* FireLabel = nullptr;
    QLineEdit* FireBox = nullptr;
    WorkingList* ComeOutList = nullptr;
    bool Telling = false;  ///< a message about a field is shown
};

}  // namespace tarnwick
