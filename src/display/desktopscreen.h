// What the table asks of its front end, answered by windows.
#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "table/crapcnst.h"
#include "table/screen.h"

class QWidget;

namespace tarnwick {

/// Shows messages and dialogs over `owner` and hands every other request on as a signal. While a run is on, the window
/// stays alive: PumpEvents serves it every few milliseconds, however fast the rolls are.
class DesktopScreen final : public QObject, public Screen {
    Q_OBJECT

  public:
    DesktopScreen(Table& t, QWidget* owner);

    Answer Show(const Message& message) override;
    int AskSettleBet(const SettleQuestion& question) override;
    void CommitAmountBox() override { emit amountBoxDue(); }
    void DrawDiceThrow() override { emit diceThrown(); }
    void RedrawTable() override { emit tableChanged(); }
    void RedrawBet(int p, int row) override { emit betChanged(p, row); }
    void RefreshOpenWindows() override { emit figuresChanged(); }
    void RunStateChanged(bool running, bool hyperDrive) override { emit runStateChanged(running, hyperDrive); }
    void PlaySound(SoundKind kind, int number) override { emit soundDue(static_cast<int>(kind), number); }
    void ShowStatus(std::string_view text) override;
    void PlaySoundFile(const std::string& path) override;
    void PumpEvents() override;
    void WaitEvents(int milliseconds) override;
    std::uint32_t Milliseconds() override;
    std::string DateText() override;
    std::string TimeText() override;

  signals:
    void amountBoxDue();
    void diceThrown();
    void tableChanged();
    void betChanged(int p, int row);
    void figuresChanged();
    void runStateChanged(bool running, bool hyperDrive);
    void soundDue(int kind, int number);
    void soundFileDue(const QString& path);
    void statusDue(const QString& text);
    void helpWanted(const QString& topic);

  private:
    Table& T;
    QWidget* Owner;
    QElapsedTimer Clock;
    qint64 LastPump = 0;
};

}  // namespace tarnwick
