/// What the tests of sessions stand on: a settings file in a folder of the test, and a session
/// whose lines are kept.
#pragma once

#include "support/file_fixture.h"
#include "support/refusal.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/session.h"
#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

/// Keeps what a session tells: "enter subrange 1: beep", "new frequency 80 MHz: wait 1.5 s".
class KeptLines final : public SessionListener {
  public:
    void OnLine(const Place& place, LineKind, const String& words) override {
        const String frequency = place.hertz > 0.0 ? L" " + FrequencyText(place.hertz) : String();
        lines.push_back(ToUtf8(place.moment + frequency + L": " + words));
        times.push_back(place.timeMs);
    }
    void OnProgress(std::size_t done, std::size_t total) override {
        progress.emplace_back(done, total);
    }
    std::vector<std::string> lines;
    std::vector<double> times;
    std::vector<std::pair<std::size_t, std::size_t>> progress;
};

/// The set-up that `text` describes.
inline TestSetUp SetUpOf(const std::string& text, const SetUpOptions& options = {}) {
    return ReadSetUp(SettingsDocument(text), L"set-up.ini", options);
}

class SessionTest : public FolderTest {
  protected:
    /// Writes the file, loads it and runs its test. `prepare` may change host and session before.
    Outcome RunText(
        const std::string& text, const std::string& answersText = {},
        const std::function<void(SessionHost&, Session&)>& prepare = [](auto&, auto&) {},
        Clock clock = Clock::Virtual) {
        Write("test.ini", text);
        answers = Answers(FromUtf8(answersText), L"answers.txt");
        const auto host = std::make_shared<SessionHost>(clock);
        Session session(host, SetUpOf(text), answers, kept);
        session.Load(WidePath("test.ini"));
        prepare(*host, session);
        const Outcome outcome = session.Run();
        summary = session.Counts();
        return outcome;
    }

    KeptLines kept;
    Answers answers;
    Summary summary;
};

}  // namespace ace::workbench
