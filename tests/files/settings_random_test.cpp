#include <map>
#include <random>

#include "support/file_fixture.h"
#include "support/sample.h"
#include "workbench/files/settings_document.h"

namespace ace::workbench {
namespace {

/// What a file should hold, kept in the simplest way: the lines of each section by its name.
using Model = std::map<char, std::vector<String>>;

class RandomEdits : public ::testing::TestWithParam<unsigned> {
  protected:
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(x_random);
    }
    char Name() { return static_cast<char>('A' + Below(6)); }
    static String Wide(char name) { return {static_cast<wchar_t>(name)}; }

    String LineText() {
        constexpr StringView Parts[] = {L"k1=",  L"k2 = ", L"=", L"; remark", L"[",
                                        L"\xE4", L"\x01",  L" ", L"text"};
        String line;
        for (std::size_t count = 1 + Below(4); count > 0; --count) {
            line += Parts[Below(std::size(Parts))];
        }
        return line;
    }
    std::vector<String> Lines() {
        std::vector<String> lines(Below(5));
        for (String& line : lines) {
            line = LineText();
        }
        return lines;
    }
    const char* LineEnd() { return Below(2) == 0 ? "\r\n" : "\n"; }

    /// A file with each section once, mixed line ends and empty lines between its sections.
    std::string Start(Model& model) {
        std::string bytes = Below(2) == 0 ? "" : std::string("; top") + LineEnd();
        for (const char name : std::string("DAFCBE").substr(0, Below(7))) {
            bytes += std::string("[") + name + "]" + LineEnd();
            for (const String& line : model[name] = Lines()) {
                TryEncode(Encoding::Utf8, line, bytes);
                bytes += LineEnd();
            }
            bytes += Below(3) == 0 ? LineEnd() : "";
        }
        return bytes;
    }
    void Edit(SettingsDocument& document, Model& model) {
        const char name = Name();
        if (Below(3) == 0) {
            document.DeleteSection(Wide(name));
            model.erase(name);
            return;
        }
        model[name] = Lines();
        String text;
        for (const String& line : model[name]) {
            text += line + L"\r\n";
        }
        document.SetSection(Wide(name), text);
    }
    static void Expect(const SettingsDocument& document, const Model& model) {
        for (char name = 'A'; name <= 'F'; ++name) {
            const auto entry = model.find(name);
            ASSERT_EQ(document.HasSection(Wide(name)), entry != model.end());
            ASSERT_EQ(document.GetSection(Wide(name)),
                      entry != model.end() ? entry->second : std::vector<String>());
        }
    }

  private:
    std::mt19937 x_random{GetParam()};
};

TEST_P(RandomEdits, ReadBackTheSameFromTheObjectAndFromItsBytes) {
    for (int file = 0; file < 20; ++file) {
        Model model;
        SettingsDocument document(Start(model));
        Expect(document, model);
        for (int edit = 0; edit < 20; ++edit) {
            Edit(document, model);
            Expect(document, model);
            Expect(SettingsDocument(document.Bytes()), model);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, test::SeedsTo(10, 1000));

}  // namespace
}  // namespace ace::workbench
