#include "display/soundplayer.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <optional>

#include "display/desktopscreen.h"
#include "files/wavefile.h"

namespace tarnwick {

namespace {

constexpr qint64 LongestHeader = 1 << 16;
constexpr qint64 LongestFile = 64 << 20;
constexpr int LongestWait = 3000;
/// The call that a stick person is heard by: "Yo!"
constexpr int SampleCall = 11;

/// How long `path` plays, in milliseconds; 0 when it can't be played.
int LengthOf(const QString& path) {
    if (!QFileInfo(path).isFile()) return 0;  // no pipe may hold the game up
    QFile file(path);
    if (file.size() > LongestFile || !file.open(QIODevice::ReadOnly)) return 0;
    const QByteArray head = file.read(LongestHeader);
    const auto wave = ReadWaveHeader({head.constData(), static_cast<std::size_t>(head.size())}, file.size());
    return wave ? static_cast<int>(qMax<std::int64_t>(1, wave->Milliseconds())) : 0;
}

}  // namespace

SoundPlayer::SoundPlayer(const Table& t, const SoundLibrary& sets, std::unique_ptr<SoundDevice> device, QObject* parent)
    : QObject(parent), T(t), Found(sets), Device(std::move(device)) {}

void SoundPlayer::Listen(DesktopScreen& screen) {
    connect(&screen, &DesktopScreen::soundDue, this,
            [this](int kind, int number) { Play(static_cast<SoundKind>(kind), number); });
    connect(&screen, &DesktopScreen::soundFileDue, this, &SoundPlayer::PlayFile);
    connect(&screen, &DesktopScreen::diceThrown, this, &SoundPlayer::PlayDice);
}

void SoundPlayer::Play(SoundKind kind, int number) {
    switch (kind) {
        case SoundKind::StickCall:
            Start(SoundChannel::StickPerson, Found.StickCall(T.StickPersonIndex, number), number > 12);
            break;
        case SoundKind::Check:
            Start(SoundChannel::Checks, Chosen(SoundList::Checks, number));
            break;
        case SoundKind::Win:
            Start(SoundChannel::Wins, Chosen(SoundList::Wins, number));
            break;
        case SoundKind::AwaitedWin:
            if (const int length = Start(SoundChannel::Wins, Chosen(SoundList::Wins, number)); length > 0) {
                Device->Wait(qMin(length, LongestWait));
            }
            break;
        case SoundKind::Limit:
            Start(SoundChannel::Wins, Found.BankSound());
            break;
    }
}

void SoundPlayer::PlayDice() { Start(SoundChannel::Dice, Chosen(SoundList::Dice, T.DiceSoundIndex)); }

void SoundPlayer::PlayFile(const QString& path) {
    if (!T.DisableAutoBetSounds) Start(SoundChannel::Scripts, path);
}

void SoundPlayer::PlaySample(SoundList list) {
    switch (list) {
        case SoundList::StickPersons:
            Start(SoundChannel::StickPerson, Found.StickCall(T.StickPersonIndex, SampleCall));
            break;
        case SoundList::Dice:
            PlayDice();
            break;
        case SoundList::Checks:
            Start(SoundChannel::Checks, Chosen(list, T.CheckSoundIndex));
            break;
        case SoundList::Wins:
            Start(SoundChannel::Wins, Chosen(list, T.WinSoundIndex));
            break;
    }
}

void SoundPlayer::SetVolume(int percent) {
    Percent = qBound(0, percent, 100);
    Device->SetVolume(Percent);
}

QString SoundPlayer::Chosen(SoundList list, int index) const {
    return Found.File(list, index, QRandomGenerator::global()->generate());
}

int SoundPlayer::Start(SoundChannel channel, const QString& path, bool next) {
    if (IsSilent() || path.isEmpty() || !Device->IsThere()) return 0;
    const int length = LengthOf(path);
    if (length == 0) return 0;
    if (next) {
        Device->PlayNext(channel, path, length);
    } else {
        Device->Play(channel, path, length);
    }
    return length;
}

}  // namespace tarnwick
