#include "display/sounddevice.h"

#include <QAudioDevice>
#include <QElapsedTimer>
#include <QMediaDevices>
#include <QQueue>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <array>

#include "display/quietwait.h"

namespace tarnwick {

namespace {

/// A sound that would begin so soon after another one of its channel is lost in that one.
constexpr qint64 AtOnce = 50;
/// More waiting calls than any roll has.
constexpr qsizetype LongestQueue = 5;

QUrl UrlOf(const QString& path) {
    return path.startsWith(QLatin1Char(':')) ? QUrl(QStringLiteral("qrc") + path) : QUrl::fromLocalFile(path);
}

class Voice {
  public:
    Voice() {
        Ended.setSingleShot(true);
        QObject::connect(&Ended, &QTimer::timeout, &Effect, [this] {
            if (!Waiting.isEmpty()) Start(Waiting.dequeue());
        });
    }
    void Play(const QString& path, int milliseconds) {
        Waiting.clear();
        Start({path, milliseconds});
    }
    void PlayNext(const QString& path, int milliseconds) {
        if (!Ended.isActive()) return Start({path, milliseconds});
        if (Waiting.size() < LongestQueue) Waiting.enqueue({path, milliseconds});
    }
    bool HasJustBegun() const { return Begun.isValid() && Begun.elapsed() < AtOnce; }
    /// The file may have changed since it was last read.
    void Forget() { Effect.setSource(QUrl()); }
    void SetVolume(int percent) { Effect.setVolume(static_cast<float>(percent) / 100); }

  private:
    struct Sound {
        QString Path;
        int Milliseconds;
    };
    void Start(const Sound& sound) {
        Effect.stop();
        Effect.setSource(UrlOf(sound.Path));
        Effect.play();
        Begun.start();
        // The effect itself doesn't tell its end reliably when a device goes away.
        Ended.start(sound.Milliseconds);
    }

    QSoundEffect Effect;
    QTimer Ended;
    QElapsedTimer Begun;
    QQueue<Sound> Waiting;
};

class Speakers : public SoundDevice {
  public:
    bool IsThere() override { return !QMediaDevices::defaultAudioOutput().isNull(); }
    void Play(SoundChannel channel, const QString& path, int milliseconds) override {
        Voice& voice = VoiceOf(channel);
        if (channel != SoundChannel::StickPerson && voice.HasJustBegun()) return;
        if (channel == SoundChannel::Scripts) voice.Forget();
        voice.Play(path, milliseconds);
    }
    void PlayNext(SoundChannel channel, const QString& path, int milliseconds) override {
        VoiceOf(channel).PlayNext(path, milliseconds);
    }
    void Wait(int milliseconds) override { WaitQuietly(milliseconds); }
    void SetVolume(int percent) override {
        Volume = percent;
        for (const std::unique_ptr<Voice>& voice : Voices) {
            if (voice != nullptr) voice->SetVolume(percent);
        }
    }

  private:
    Voice& VoiceOf(SoundChannel channel) {
        std::unique_ptr<Voice>& voice = Voices[static_cast<std::size_t>(channel)];
        if (voice == nullptr) {
            voice = std::make_unique<Voice>();
            voice->SetVolume(Volume);
        }
        return *voice;
    }

    std::array<std::unique_ptr<Voice>, SoundChannels> Voices;
    int Volume = 100;
};

}  // namespace

std::unique_ptr<SoundDevice> MakeSpeakers() { return std::make_unique<Speakers>(); }

}  // namespace tarnwick
