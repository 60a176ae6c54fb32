// What plays wave files.
#pragma once

#include <QString>
#include <memory>

namespace tarnwick {

/// Each channel plays one sound at a time.
enum class SoundChannel { StickPerson, Dice, Checks, Wins, Scripts };
constexpr std::size_t SoundChannels = 5;

struct SoundDevice {
    virtual ~SoundDevice() = default;

    /// Whether a sound would be heard. What follows is asked of a device that is there.
    virtual bool IsThere() = 0;
    /// Plays the file of that length at once, instead of all that the channel plays and was to play.
    virtual void Play(SoundChannel channel, const QString& path, int milliseconds) = 0;
    /// Plays it when the channel has ended what it plays and was to play.
    virtual void PlayNext(SoundChannel channel, const QString& path, int milliseconds) = 0;
    /// Returns after that time. Windows are drawn meanwhile, but the user can't act.
    virtual void Wait(int milliseconds) = 0;
    /// 0..100.
    virtual void SetVolume(int percent) = 0;
};

/// The computer's loudspeakers. Nothing of the toolkit's sound is touched before it is first asked for something.
std::unique_ptr<SoundDevice> MakeSpeakers();

}  // namespace tarnwick
