#include "alarms/Bell.h"

#include "app/StandardCode.h"
#include "forms/Devices.h"

namespace Bell {

namespace {

using StandardCode::Shared;

// Keeps a sound in the list while its box is open. The destructor removes it, even if the program
// ends while the box is open.
class Ring {
  public:
    explicit Ring(const std::string& path) {
        Shared().RingingSounds.push_back(path);
        Shared().AlarmSounding = true;
    }
    ~Ring() {
        Shared().RingingSounds.pop_back();
        ClearAlarmSounding();
    }
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;
};

void PlayNewest() {
    forms::Machine().sound->Play(Shared().RingingSounds.back(), forms::Sound::Mode::Loop);
}

}  // namespace

forms::BoxResult RingBehindBox(const std::string& path, const std::string& text,
                               forms::MsgBoxOptions options, const std::string& caption) {
    forms::BoxResult answer = forms::BoxResult::Ok;
    {
        const Ring ring(path);
        PlayNewest();
        answer = forms::MsgBox(text, options, caption);
    }
    forms::Machine().sound->Stop();
    if (IsRinging()) {
        PlayNewest();
    }
    return answer;
}

bool IsRinging() { return !Shared().RingingSounds.empty(); }

void ClearAlarmSounding() { Shared().AlarmSounding = IsRinging(); }

}  // namespace Bell
