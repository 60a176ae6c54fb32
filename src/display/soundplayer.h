// The sounds of the game: which file is played for what happens at the table.
#pragma once

#include <QObject>
#include <memory>

#include "display/sounddevice.h"
#include "display/soundsets.h"
#include "table/screen.h"

namespace tarnwick {

class DesktopScreen;

/// Silent in Hyper-Drive, when all sound is disabled, without a device, and where a file is missing or none that can be
/// played; never in the way of the game.
class SoundPlayer : public QObject {
    Q_OBJECT

  public:
    SoundPlayer(const Table& t, const SoundLibrary& sets, std::unique_ptr<SoundDevice> device,
                QObject* parent = nullptr);

    /// Plays what the table asks of `screen`.
    void Listen(DesktopScreen& screen);

    /// A rolled number breaks off what the stick person says; all other calls wait for the end of the one before. For
    /// an AwaitedWin the game waits, 3 seconds at most.
    void Play(SoundKind kind, int number);
    void PlayDice();
    /// What a script plays.
    void PlayFile(const QString& path);
    /// Lets the user hear what the setting of `list` means.
    void PlaySample(SoundList list);

    const SoundLibrary& Sets() const { return Found; }
    bool HasDevice() { return Device->IsThere(); }
    /// 0..100 of the system's own volume; for this run of the program.
    int Volume() const { return Percent; }
    void SetVolume(int percent);

  private:
    bool IsSilent() const { return T.DisableAllSound || T.HyperDriveActive; }
    /// A file of `list` for the set `index`.
    QString Chosen(SoundList list, int index) const;
    /// Plays `path`; its length in milliseconds, 0 when it can't be heard.
    int Start(SoundChannel channel, const QString& path, bool next = false);

    const Table& T;
    const SoundLibrary& Found;
    std::unique_ptr<SoundDevice> Device;
    int Percent = 100;
};

}  // namespace tarnwick
