#include "workbench/session/load_place.h"

#include "workbench/files/disk_settings_file.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// Number of a section's line in the file, from 1; 0 when the file can't be read any more.
std::size_t LineNumber(const String& fileName, StringView section, std::int32_t lineIndex) {
    try {
        const std::optional<SettingsDocument> document = LoadDocument(ToUtf8(fileName));
        const std::optional<std::size_t> header =
            document ? document->HeaderLine(section) : std::nullopt;
        return header ? *header + 1 + static_cast<std::size_t>(lineIndex) : 0;
    } catch (const RunTimeError&) {
        return 0;
    }
}

}  // namespace

LoadPlace::LoadPlace(ThreadContext& context, ActionPlaces* places)
    : x_context(context), x_before(context.LineObserver), x_places(places) {
    x_context.LineObserver = this;
}

LoadPlace::~LoadPlace() {
    x_context.LineObserver = x_before;
}

void LoadPlace::SetStarts(const SetPlace& place) {
    if (x_places != nullptr) {
        x_places->SetStarts(place);
    }
}

void LoadPlace::SectionStarts(StringView section) {
    x_section = section;
    if (x_places != nullptr) {
        x_places->SectionStarts(section);
    }
}

void LoadPlace::LineIsRead(const LineReport& report) {
    if (x_places != nullptr) {
        x_places->LineIsRead(report);
    }
    if (report.meaning == LineMeaning::UnknownKeyword) {
        x_passedOver.push_back(
            L"[" + String(report.section) + L"] " + QuotedLine(String(report.line)) +
            L": its list does not know this keyword, so the action fails when it runs");
    }
    if (report.error != 0) {
        x_section = report.section;
        x_lineIndex = report.lineIndex;
        x_line = report.line;
        x_reason = report.reason;
    }
}

String LoadPlace::Describe(const String& fileName, const RunTimeError& error) const {
    const String number = L" (error " + std::to_wstring(error.Number()) + L")";
    if (error.Description().starts_with(fileName)) {
        return error.Description() + number;  // the file names itself
    }
    if (x_lineIndex < 0) {
        const String place = x_section.empty() ? String() : L" [" + x_section + L"]";
        return fileName + L":" + place + L" " + error.Description() + number;
    }
    const std::size_t line = LineNumber(fileName, x_section, x_lineIndex);
    return fileName + (line > 0 ? L":" + std::to_wstring(line) : String()) + L": [" + x_section +
           L"] " + QuotedLine(x_line) + L": " + x_reason + number;
}

}  // namespace ace::workbench
