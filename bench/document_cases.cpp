#include <memory>

#include "bench/cases.h"
#include "workbench/settings_document.h"

#ifdef ACE_BENCH_SIMPLEINI
#define SI_NO_CONVERSION
#include <SimpleIni.h>
#endif
#ifdef ACE_BENCH_GLIB
#include <glib.h>
#endif

namespace ace::bench {

namespace {

using workbench::SettingsDocument;

constexpr std::size_t LinesPerSection = 20;
constexpr std::size_t SizeSteps[] = {1000, 10000, 30000};

std::string SectionName(std::size_t number) {
    std::string name = "ActionsOnStep";
    return name += std::to_string(number);
}

std::string SectionLines(std::size_t number) {
    std::string lines;
    for (std::size_t i = 1; i < LinesPerSection; ++i) {
        lines.append("EnterAction").append(std::to_string(i));
        lines.append("=SWITCHAMP:Amp ").append(std::to_string(number)).append(",3\r\n");
    }
    return lines;
}

std::string FileOf(std::size_t sections) {
    std::string text;
    for (std::size_t i = 1; i <= sections; ++i) {
        text.append("[").append(SectionName(i)).append("]\r\n").append(SectionLines(i));
    }
    return text;
}

String Widened(const std::string& text) {
    return {text.begin(), text.end()};
}

volatile std::size_t sink = 0;

Work Load(std::size_t sections) {
    return [text = FileOf(sections)] {
        const SettingsDocument document(text);
        sink = document.HasSection(L"ActionsOnStep1") ? 1 : 0;
    };
}

/// Every section gets other lines than it had, and the bytes of the file are put together once.
Work ReplaceAllAndSave(std::size_t sections) {
    std::vector<std::pair<String, String>> replaced;
    for (std::size_t i = 1; i <= sections; ++i) {
        replaced.emplace_back(Widened(SectionName(i)), Widened(SectionLines(i + 1)));
    }
    return [text = FileOf(sections), replaced] {
        SettingsDocument document(text);
        for (const auto& [name, lines] : replaced) {
            document.SetSection(name, lines);
        }
        sink = document.Bytes().size();
    };
}

/// The floor is the smallest file: what a line costs must not grow with the file.
Case Growing(const std::string& what, std::size_t sections, Work (*work)(std::size_t)) {
    return {what + ", " + std::to_string(sections) + " sections beside 1000",
            "line",
            sections * LinesPerSection,
            [work] { return work(SizeSteps[0]); },
            [work, sections] { return work(sections); },
            sections == SizeSteps[2] ? Limits{1.05, 1.6} : Limits{},
            SizeSteps[0] * LinesPerSection};
}

std::vector<std::string> NamesOf(std::size_t sections) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= sections; ++i) {
        names.push_back(SectionName(i));
    }
    return names;
}

/// Our document splits a section when it is asked for, a library all of them when it loads: here
/// every line is handed out by both.
Work LoadAndRead(std::size_t sections) {
    return [text = FileOf(sections), names = NamesOf(sections)] {
        const SettingsDocument document(text);
        std::size_t lines = 0;
        for (const std::string& name : names) {
            lines += document.GetSection(Widened(name)).size();
        }
        sink = lines;
    };
}

#ifdef ACE_BENCH_SIMPLEINI
Work LoadWithSimpleIni(std::size_t sections) {
    return [text = FileOf(sections)] {
        CSimpleIniA file;
        file.LoadData(text);
        sink = file.GetSection("ActionsOnStep1") != nullptr ? 1 : 0;
    };
}

Work LoadAndReadWithSimpleIni(std::size_t sections) {
    return [text = FileOf(sections), names = NamesOf(sections)] {
        CSimpleIniA file;
        file.LoadData(text);
        std::size_t lines = 0;
        for (const std::string& name : names) {
            for (const auto& [key, value] : *file.GetSection(name.c_str())) {
                lines += key.pItem != nullptr && value != nullptr ? 1 : 0;
            }
        }
        sink = lines;
    };
}
#endif

#ifdef ACE_BENCH_GLIB
Work LoadWithGKeyFile(std::size_t sections) {
    return [text = FileOf(sections)] {
        GKeyFile* file = g_key_file_new();
        g_key_file_load_from_data(file, text.data(), text.size(), G_KEY_FILE_NONE, nullptr);
        sink = g_key_file_has_group(file, "ActionsOnStep1") ? 1 : 0;
        g_key_file_free(file);
    };
}

std::size_t LinesOf(GKeyFile* file, const char* section) {
    std::size_t lines = 0;
    gsize size = 0;
    gchar** keys = g_key_file_get_keys(file, section, &size, nullptr);
    for (gsize i = 0; i < size; ++i) {
        gchar* value = g_key_file_get_value(file, section, keys[i], nullptr);
        lines += value != nullptr ? 1 : 0;
        g_free(value);
    }
    g_strfreev(keys);
    return lines;
}

Work LoadAndReadWithGKeyFile(std::size_t sections) {
    return [text = FileOf(sections), names = NamesOf(sections)] {
        GKeyFile* file = g_key_file_new();
        g_key_file_load_from_data(file, text.data(), text.size(), G_KEY_FILE_NONE, nullptr);
        std::size_t lines = 0;
        for (const std::string& name : names) {
            lines += LinesOf(file, name.c_str());
        }
        sink = lines;
        g_key_file_free(file);
    };
}
#endif

Case Beside(const std::string& what, Work (*theirs)(std::size_t), Work (*ours)(std::size_t),
            double timeLimit) {
    constexpr std::size_t Sections = 10000;
    return {what,
            "line",
            Sections * LinesPerSection,
            [theirs] { return theirs(Sections); },
            [ours] { return ours(Sections); },
            {.time = timeLimit}};
}

}  // namespace

std::vector<Case> DocumentCases() {
    std::vector<Case> cases;
    for (const std::size_t sections : {SizeSteps[1], SizeSteps[2]}) {
        cases.push_back(Growing("load", sections, Load));
        cases.push_back(Growing("replace all and save", sections, ReplaceAllAndSave));
    }
#ifdef ACE_BENCH_SIMPLEINI
    cases.push_back(Beside("load beside simpleini", LoadWithSimpleIni, Load, 0.15));
    cases.push_back(Beside("load and read every line beside simpleini", LoadAndReadWithSimpleIni,
                           LoadAndRead, 0));
#endif
#ifdef ACE_BENCH_GLIB
    cases.push_back(Beside("load beside GKeyFile", LoadWithGKeyFile, Load, 0.3));
    cases.push_back(Beside("load and read every line beside GKeyFile", LoadAndReadWithGKeyFile,
                           LoadAndRead, 0));
#endif
    return cases;
}

}  // namespace ace::bench
