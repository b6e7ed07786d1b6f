#include "support/device_fixture.h"

namespace ace::test {

String Failed(const String& line, std::int32_t error) {
    return line + L" -> error " + std::to_wstring(error);
}

String Opened(std::int32_t fileKind) {
    return Called(L"SystemServices.OpenSettingsFile", fileKind, 10, L"setup.ini", 0, 0);
}

String Found(const String& name) {
    return Called(L"DeviceList.GetDevice", name);
}

String StateOf(const String& name) {
    return Called(L"Device.State", name);
}

Lines Woken(const String& name) {
    return {StateOf(name), Called(L"Device.Activate", name, 1), StateOf(name)};
}

Lines Classed(const String& name, std::int32_t deviceClass) {
    return {Called(L"Device.DeviceClass", name), Called(L"DeviceList.ClassName", deviceClass)};
}

Lines Loaded(const String& name, const String& section) {
    return {Called(L"Device.LoadSettings", name, true, section),
            Called(L"SettingsFile.GetSection", section)};
}

String UsedFor(const String& name, std::int32_t mode) {
    return Called(L"MonitorDevice.SetUseMode", name, mode);
}

String ChannelRead(const String& name, std::int32_t channel) {
    return Called(L"MonitorDevice.ReadChannel", name, channel);
}

String Progress(const String& text) {
    return Called(L"SystemServices.SetProgressText", text);
}

String NameOf(const String& name) {
    return Called(L"Device.Name", name);
}

String ErrorShown() {
    return L"Form \"frmGpibError\"";
}

String TestAsked() {
    return L"SystemServices.GetCurrentTest()";
}

String MarkCompared(double reading) {
    return Called(L"Utilities.IsSameValue", reading, 12345.0);
}

Lines Prepared(const String& name, std::int32_t number, std::int32_t mode, bool isFirst) {
    return Journal(Opened(), isFirst ? Lines{Found(name)} : Lines{}, StateOf(name),
                   Classed(name, 1), UsedFor(name, mode),
                   Loaded(name, L"Actions" + std::to_wstring(number) + L"-Device"));
}

DeviceTest::DeviceTest() : comments(std::make_shared<FakeCommentForm>(*host)) {
    host->texts = {{9420, L"%1 has failed"}};
    context.ModuleFileNames.fill(L"setup.ini");
    context.CommentForm = comments;
}

DeviceTest::~DeviceTest() = default;

void DeviceTest::TearDown() {
    EXPECT_TRUE(comments->answers.empty()) << "unused answers";
}

void DeviceTest::ExpectError(const String& button, const String& heading, const String& device,
                             std::int32_t number, const String& text) {
    host->user.Expect({L"frmGpibError",
                       {sim::Press(button)},
                       {{L"lblMessage", heading},
                        {L"txtError", L"T(9322):\t" + device + L"\r\nT(9320)\t" +
                                          std::to_wstring(number) + L"\r\n\t" + text}}});
}

}  // namespace ace::test
