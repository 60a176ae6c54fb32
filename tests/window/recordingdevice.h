// A sound device that writes down what it would play.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "display/sounddevice.h"
#include "display/words.h"
#include "files/paths.h"

namespace tarnwick {

struct HeardSounds {
    bool IsThere = true;
    std::vector<std::string> Files;  ///< names without folder; "+" behind what waits for its channel
    std::vector<int> Waited;
    int Volume = -1;

    std::vector<std::string> Take() { return std::exchange(Files, {}); }
};

class RecordingDevice : public SoundDevice {
  public:
    explicit RecordingDevice(HeardSounds& heard) : Heard(heard) {}

    bool IsThere() override { return Heard.IsThere; }
    void Play(SoundChannel, const QString& path, int) override { Heard.Files.push_back(ShortName(Utf8(path))); }
    void PlayNext(SoundChannel, const QString& path, int) override {
        Heard.Files.push_back(ShortName(Utf8(path)) + "+");
    }
    void Wait(int milliseconds) override { Heard.Waited.push_back(milliseconds); }
    void SetVolume(int percent) override { Heard.Volume = percent; }

  private:
    HeardSounds& Heard;
};

}  // namespace tarnwick
