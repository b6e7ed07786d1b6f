// A complete host: minimal_host FILE SUBRANGES loads the actions of a single test and runs it over
// a few frequencies. What the host doesn't have is the engine's do-nothing default.
#include <charconv>
#include <clocale>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

#include <ace/core/actions_engine.h>
#include <ace/host.h>

namespace {

using ace::String;

/// Bytes of the user's locale, such as UTF-8, as wide characters; what can't be read is a "?".
String Wide(const std::string& bytes) {
    String text;
    std::mbstate_t state{};
    for (std::size_t i = 0; i < bytes.size();) {
        wchar_t c = L'?';
        const std::size_t length = std::mbrtowc(&c, bytes.data() + i, bytes.size() - i, &state);
        const bool isRead = length != 0 && length <= bytes.size() - i;
        text.push_back(isRead ? c : L'?');
        i += isRead ? length : 1;
        state = isRead ? state : std::mbstate_t{};
    }
    return text;
}

/// The sections of a file. A real host also writes it and answers for single keys.
class File : public ace::DefaultSettingsFile {
  public:
    explicit File(std::istream& in) {
        String section;
        for (std::string line; std::getline(in, line);) {
            const String text = Wide(line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0)));
            if (text.starts_with(L'[')) {
                section = text.substr(1, text.find(L']') - 1);
            } else {
                x_sections[section].push_back(text);
            }
        }
    }
    std::vector<String> GetSection(const String& section) override { return x_sections[section]; }

  private:
    std::map<String, std::vector<String>> x_sections;
};

class System : public ace::DefaultSystemServices {
    std::shared_ptr<ace::ISettingsFile> OpenSettingsFile(std::int32_t, std::int32_t,
                                                         const String& name, std::int32_t,
                                                         std::int32_t) override {
        std::ifstream in{std::filesystem::path(name)};
        return in ? std::make_shared<File>(in) : throw ace::RunTimeError(53, L"no such file");
    }
};

/// Prints what a dialog says and closes it at once: "go on".
class Screen : public ace::DefaultFormHost {
    void ShowModal(ace::Form& form) override {
        if (const ace::Control* message = form.Find(L"lblComment")) {
            std::wcout << L"to the operator: " << message->caption << L'\n';
        }
        form.CloseByFrame();
    }
};

class StatusLine : public ace::DefaultStatusDisplay {
    void ShowStatus(const String& text, bool, bool) override {
        std::wcout << (text.empty() ? L"" : L"status: " + text + L'\n');
    }
};

struct Host : ace::IHostFactory {
    std::shared_ptr<ace::ILanguage> MakeLanguage() override {
        return std::make_shared<ace::EnglishLanguage>();
    }
    std::shared_ptr<ace::ISystemServices> MakeSystemServices() override {
        return std::make_shared<System>();
    }
    std::shared_ptr<ace::IFormHost> MakeFormHost() override { return std::make_shared<Screen>(); }
    std::shared_ptr<ace::IStatusDisplay> MakeStatusDisplay() override {
        return std::make_shared<StatusLine>();
    }
};

/// The moments of a test in their order; true when an action asked to stop.
bool RunTest(ace::aceActionsEngine& engine, std::int32_t subranges) {
    bool stop = engine.StartTest();
    for (std::int32_t n = 1; n <= subranges && !stop; ++n) {
        stop = engine.EnterSubrange(n);
        for (double hertz = n * 80e6; hertz < n * 100e6 && !stop; hertz += 10e6) {
            std::wcout << hertz / 1e6 << L" MHz\n";
            stop = engine.NewFrequency(hertz, false);
        }
        stop = engine.LeaveSubrange(n) || stop;
    }
    return engine.StopTest() || stop;
}

/// The whole text as a number from 0 on; nothing for any other text.
std::optional<std::int32_t> NumberIn(std::string_view text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stop != end || number < 0) {
        return std::nullopt;
    }
    return number;
}

}  // namespace

int main(int argc, char** argv) try {
    std::setlocale(LC_CTYPE, "");
    const std::optional<std::int32_t> subranges = argc == 3 ? NumberIn(argv[2]) : std::nullopt;
    if (!subranges) {
        std::wcerr << L"usage: minimal_host FILE SUBRANGES\n";
        return 2;
    }
    ace::ThreadContext::InstallHost(std::make_shared<Host>());
    ace::aceActionsEngine engine;
    engine.LoadActions(Wide(argv[1]), *subranges, ace::aceTemplate);
    std::wcout << (RunTest(engine, *subranges) ? L"stopped\n" : L"finished\n");
} catch (const ace::RunTimeError& error) {
    std::wcerr << L"error " << error.Number() << L": " << error.Description() << L'\n';
    return 1;
}
