#include <string>

#include <ace/core/module_table.h>
#include <ace/settings/wireless_names.h>

namespace ace {

namespace {

String Numbered(StringView word, std::int32_t number) {
    return String(word) + std::to_wstring(number);
}

}  // namespace

String WirelessNames::TestSection(std::int32_t test) {
    return Numbered(VKSTestSets.sectionWord, test);
}

String WirelessNames::StepSection(const String& testKey, std::int32_t step) {
    return String(VKSStepSets.sectionWord) + testKey + Numbered(L"_", step);
}

String WirelessNames::MatrixSection(std::int32_t templateNumber) {
    return String(ModuleTable[aceVKSTemplate].fixed[0].section) + Numbered(L"_", templateNumber);
}

String WirelessNames::KeysOf(const String& section) {
    return section + L"_VKS";
}

}  // namespace ace
