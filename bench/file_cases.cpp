/// The engine's own load and save, on a settings file that stands in memory.
#include <memory>

#include <ace/core/actions_engine.h>
#include <ace/core/text.h>

#include "bench/cases.h"
#include "bench/file_text.h"
#include "bench/quiet_host.h"
#include "bench/quiet_services.h"
#include "workbench/files/settings_document.h"

namespace ace::bench {

namespace {

using workbench::SettingsDocument;

constexpr std::int32_t Sizes[] = {1000, 10000};

/// A document as the engine sees it. Saved bytes go nowhere.
class MemoryFile final : public DefaultSettingsFile {
  public:
    explicit MemoryFile(std::string bytes) : x_document(std::move(bytes)) {}
    std::vector<String> GetSection(const String& section) override {
        std::vector<String> lines = x_document.GetSection(section);
        CountLines(lines.size());
        return lines;
    }
    void SetSection(const String& section, const Value& content) override {
        if (const String* text = std::get_if<String>(&content)) {
            x_document.SetSection(section, *text);
            CountLines(static_cast<std::size_t>(std::count(text->begin(), text->end(), L'\n')));
        }
    }

  private:
    static void CountLines(std::size_t lines) {
        if (HostsCount()) {
            Count<true>(Call::Line, lines);
        }
    }

    SettingsDocument x_document;
};

class MemoryServices final : public DefaultSystemServices {
  public:
    explicit MemoryServices(std::string bytes) : x_bytes(std::move(bytes)) {}
    std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t, std::int32_t, const String&,
                                                    std::int32_t, std::int32_t) override {
        return std::make_shared<MemoryFile>(x_bytes);
    }

  private:
    std::string x_bytes;
};

template <bool Counts>
class MemoryHost final : public QuietFactory<Counts> {
  public:
    explicit MemoryHost(std::string bytes) : x_bytes(std::move(bytes)) {}
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return std::make_shared<MemoryServices>(x_bytes);
    }

  private:
    std::string x_bytes;
};

std::shared_ptr<IHostFactory> HostWithFile(const std::string& bytes) {
    if (HostsCount()) {
        return std::make_shared<MemoryHost<true>>(bytes);
    }
    return std::make_shared<MemoryHost<false>>(bytes);
}

struct Bench {
    explicit Bench(std::int32_t subranges)
        : size(subranges), context(HostWithFile(SubrangesText(size))) {
        engine = std::make_unique<aceActionsEngine>(context);
    }
    std::int32_t size;
    ThreadContext context;
    std::unique_ptr<aceActionsEngine> engine;
};

}  // namespace

std::string SubrangesText(std::int32_t subranges) {
    std::string text = "[ActionsOnTest]\r\nNumOfEnterActions=1\r\nEnterAction1=WAIT:1.000\r\n";
    for (std::int32_t i = 1; i <= subranges; ++i) {
        text += "[ActionsOnSR" + std::to_string(i) + "]\r\n";
        text +=
            "NumOfEnterActions=3\r\n"
            "EnterAction1=REMOTE:MMEM:LOAD:STAT 1\x01'RI_BASE.STA',0,13,0,,0,\r\n"
            "EnterAction2=WAIT:3000.000\r\n"
            "EnterAction3=SWITCHAMP:Amp 80-1000MHz 250W,1\r\n"
            "NumOfLeaveActions=1\r\n"
            "LeaveAction1=SWITCHUNIT:RF Matrix A,ALL_50OHM\r\n";
    }
    return text;
}

Work LoadSubranges(std::int32_t subranges) {
    return [bench = std::make_shared<Bench>(subranges)] {
        bench->engine->LoadActions(L"file", bench->size, aceTemplate);
    };
}

namespace {

/// As many sections are replaced, by the lines that they have already.
Work Save(std::int32_t subranges) {
    auto bench = std::make_shared<Bench>(subranges);
    bench->engine->LoadActions(L"file", bench->size, aceTemplate);
    return [bench] { bench->engine->SaveActions(L"file"); };
}

/// What the host does of it: opens the file, and hands out every line.
Work ReadAll(std::int32_t subranges) {
    return [bench = std::make_shared<Bench>(subranges)] {
        const auto file = bench->context.SystemServices().OpenSettingsFile(20, 10, L"file", 0, 0);
        for (std::int32_t i = 1; i <= bench->size; ++i) {
            static_cast<void>(file->GetSection(L"ActionsOnSR" + IntegerText(i)));
        }
    };
}

Case Growing(const char* what, Work (*work)(std::int32_t), std::size_t questions) {
    const auto lines = [](std::int32_t size) {
        return static_cast<std::size_t>(size) * LinesOfASubrange + 2;
    };
    return {std::string(what) + ", 10000 subranges beside 1000",
            "line",
            lines(Sizes[1]),
            [work] { return work(Sizes[0]); },
            [work] { return work(Sizes[1]); },
            {.instructions = 1.05},
            lines(Sizes[0]),
            {{Call::Line, lines(Sizes[1])}, {Call::TraceQuestion, questions}}};
}

}  // namespace

std::vector<Case> FileCases() {
    const auto sections = static_cast<std::size_t>(Sizes[1]) + 1;
    Case load = Growing("the engine loads a file", LoadSubranges, 2 * sections);
    Case beside = load;
    beside.name = "the engine loads a file, beside the host that hands out its lines";
    beside.floor = [] { return ReadAll(Sizes[1]); };
    beside.limits = {};
    beside.floorUnits = beside.units;
    // A section is traced, and each list in it: two of a subrange, one of the test.
    const std::size_t written = 3 * (sections - 1) + 2;
    return {load, beside, Growing("the engine saves a file", Save, 2 * written)};
}

}  // namespace ace::bench
