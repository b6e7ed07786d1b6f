#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "bench/cases.h"
#include "workbench/files/settings_document.h"

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
constexpr std::size_t SizeSteps[] = {1000, 10000, 100000};

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

/// What was read or written is the result of the work, and can be counted.
void Done(std::size_t lines) {
    sink = lines;
    if (HostsCount()) {
        Count<true>(Call::Line, lines);
    }
}
void Done(const std::string& bytes) {
    sink = bytes.size();
    if (HostsCount()) {
        Done(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')));
    }
}

/// What any reader of such a file does at least: takes the bytes, finds the ends of the lines and
/// keeps where each section begins.
Work Scan(std::size_t sections) {
    return [text = FileOf(sections)] {
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it is measured.
        const std::string bytes = text;
        std::unordered_map<std::string_view, std::size_t> found;
        for (std::size_t begin = 0; begin < bytes.size();) {
            const std::size_t end = bytes.find('\n', begin);
            if (bytes[begin] == '[') {
                found.emplace(std::string_view(bytes).substr(begin, end - begin), begin);
            }
            begin = end + 1;
        }
        Done(found.size());
    };
}

Work Load(std::size_t sections) {
    return [text = FileOf(sections)] {
        const SettingsDocument document(text);
        Done(document.HasSection(L"ActionsOnStep1") ? 1 : 0);
    };
}

/// Every section gets other lines than it had, and the bytes of the file are put together once.
Work ReplaceAllAndSave(std::size_t sections) {
    std::vector<std::pair<String, String>> replaced;
    for (std::size_t i = 1; i <= sections; ++i) {
        replaced.emplace_back(Widened(SectionName(i)), Widened(SectionLines(i + 1)));
    }
    return [text = FileOf(sections), replaced = std::move(replaced)] {
        SettingsDocument document(text);
        for (const auto& [name, lines] : replaced) {
            document.SetSection(name, lines);
        }
        Done(document.Bytes());
    };
}

/// The floor is the smallest file: what a line costs must not grow with the file.
Case Growing(const std::string& what, std::size_t sections, Work (*work)(std::size_t),
             std::size_t done) {
    return {what + ", " + std::to_string(sections) + " sections beside 1000",
            "line",
            sections * LinesPerSection,
            [work] { return work(SizeSteps[0]); },
            [work, sections] { return work(sections); },
            {.instructions = 1.05},
            SizeSteps[0] * LinesPerSection,
            {{Call::Line, done}}};
}

/// The time of a large file goes to the memory that the processor's cache no longer holds, so it is
/// measured beside a bare scan of the same file.
Case BesideAScan(std::size_t sections) {
    return {"load, " + std::to_string(sections) + " sections beside a bare scan",
            "line",
            sections * LinesPerSection,
            [sections] { return Scan(sections); },
            [sections] { return Load(sections); },
            {.time = 1.0},
            sections * LinesPerSection,
            {{Call::Line, 1}}};
}

std::vector<std::string> NamesOf(std::size_t sections) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= sections; ++i) {
        names.push_back(SectionName(i));
    }
    return names;
}

/// The keys of every section, and the new value of each of them, by section.
const std::vector<std::string>& KeysOfASection() {
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> made;
        for (std::size_t i = 1; i < LinesPerSection; ++i) {
            made.push_back("EnterAction" + std::to_string(i));
        }
        return made;
    }();
    return keys;
}
std::vector<std::string> ValuesOf(std::size_t sections) {
    std::vector<std::string> values;
    for (std::size_t i = 1; i <= sections; ++i) {
        values.push_back("SWITCHAMP:Amp " + std::to_string(i + 1) + ",3");
    }
    return values;
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
        Done(lines);
    };
}

#ifdef ACE_BENCH_SIMPLEINI
Work LoadWithSimpleIni(std::size_t sections) {
    return [text = FileOf(sections)] {
        CSimpleIniA file;
        file.LoadData(text);
        Done(file.GetSection("ActionsOnStep1") != nullptr ? 1 : 0);
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
        Done(lines);
    };
}

Work SaveWithSimpleIni(std::size_t sections) {
    return [text = FileOf(sections), names = NamesOf(sections), values = ValuesOf(sections)] {
        CSimpleIniA file;
        file.LoadData(text);
        for (std::size_t i = 0; i < names.size(); ++i) {
            for (const std::string& key : KeysOfASection()) {
                file.SetValue(names[i].c_str(), key.c_str(), values[i].c_str());
            }
        }
        std::string bytes;
        file.Save(bytes);
        Done(bytes);
    };
}
#endif

#ifdef ACE_BENCH_GLIB
Work LoadWithGKeyFile(std::size_t sections) {
    return [text = FileOf(sections)] {
        GKeyFile* file = g_key_file_new();
        g_key_file_load_from_data(file, text.data(), text.size(), G_KEY_FILE_NONE, nullptr);
        Done(g_key_file_has_group(file, "ActionsOnStep1") != 0 ? 1 : 0);
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
        Done(lines);
        g_key_file_free(file);
    };
}

Work SaveWithGKeyFile(std::size_t sections) {
    return [text = FileOf(sections), names = NamesOf(sections), values = ValuesOf(sections)] {
        GKeyFile* file = g_key_file_new();
        g_key_file_load_from_data(file, text.data(), text.size(), G_KEY_FILE_NONE, nullptr);
        for (std::size_t i = 0; i < names.size(); ++i) {
            for (const std::string& key : KeysOfASection()) {
                g_key_file_set_value(file, names[i].c_str(), key.c_str(), values[i].c_str());
            }
        }
        gsize size = 0;
        gchar* bytes = g_key_file_to_data(file, &size, nullptr);
        Done(std::string(bytes, size));
        g_free(bytes);
        g_key_file_free(file);
    };
}
#endif

struct Comparison {
    const char* what;
    Work (*theirs)(std::size_t);
    Work (*ours)(std::size_t);
    double timeLimit;
    std::size_t sections;
    std::size_t done;  ///< lines that one run of ours reads or writes
};

Case Beside(const Comparison& one) {
    return {one.what,
            "line",
            one.sections * LinesPerSection,
            [one] { return one.theirs(one.sections); },
            [one] { return one.ours(one.sections); },
            {.time = one.timeLimit},
            one.sections * LinesPerSection,
            {{Call::Line, one.done}}};
}

/// A header and its lines, of every section.
constexpr std::size_t AllLines(std::size_t sections) {
    return sections * LinesPerSection;
}
/// The lines without the header.
constexpr std::size_t Entries(std::size_t sections) {
    return sections * (LinesPerSection - 1);
}

}  // namespace

std::vector<Case> DocumentCases() {
    std::vector<Case> cases;
    for (const std::size_t sections : {SizeSteps[1], SizeSteps[2]}) {
        cases.push_back(Growing("load", sections, Load, 1));
        cases.push_back(
            Growing("replace all and save", sections, ReplaceAllAndSave, AllLines(sections)));
    }
    for (const std::size_t sections : SizeSteps) {
        cases.push_back(BesideAScan(sections));
    }
    constexpr std::size_t Many = SizeSteps[1];
#ifdef ACE_BENCH_SIMPLEINI
    for (const Comparison& one : {
             Comparison{"load beside simpleini", LoadWithSimpleIni, Load, 0.15, Many, 1},
             Comparison{"load and read every line beside simpleini", LoadAndReadWithSimpleIni,
                        LoadAndRead, 0, Many, Entries(Many)},
             Comparison{"replace all and save beside simpleini", SaveWithSimpleIni,
                        ReplaceAllAndSave, 0, Many, AllLines(Many)},
         }) {
        cases.push_back(Beside(one));
    }
#endif
#ifdef ACE_BENCH_GLIB
    // Its save is quadratic in the sections, so that case is a smaller one.
    constexpr std::size_t Few = SizeSteps[0];
    for (const Comparison& one : {
             Comparison{"load beside GKeyFile", LoadWithGKeyFile, Load, 0.3, Many, 1},
             Comparison{"load and read every line beside GKeyFile", LoadAndReadWithGKeyFile,
                        LoadAndRead, 0, Many, Entries(Many)},
             Comparison{"replace all and save beside GKeyFile, 1000 sections", SaveWithGKeyFile,
                        ReplaceAllAndSave, 0, Few, AllLines(Few)},
         }) {
        cases.push_back(Beside(one));
    }
#endif
    return cases;
}

}  // namespace ace::bench
