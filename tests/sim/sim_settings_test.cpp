#include "sim/sim_settings.h"

#include <gtest/gtest.h>

#include "sim/sim_host.h"
#include "support/error_of.h"

namespace ace::sim {
namespace {

using test::ErrorOf;

/// A file that two parts of the engine have open at the same time.
struct SimSettings : ::testing::Test {
    static std::shared_ptr<SimHost> HostWithFile() {
        auto made = std::make_shared<SimHost>();
        made->files[L"f"] = ParseSections(L"[A]\nx=1\n[B]\ny=1\n[C]\nz=1\n");
        return made;
    }
    std::shared_ptr<SimHost> host = HostWithFile();
    SimSettingsFile first{*host, L"f"};
    SimSettingsFile second{*host, L"f"};
};

TEST_F(SimSettings, WhatOthersChangedMeanwhileStays) {
    first.SetString(L"A", L"x", L"2");
    first.SetSection(L"C", Value(std::monostate()));
    second.SetString(L"B", L"y", L"2");
    second.Release();
    first.Release();
    EXPECT_EQ(host->files[L"f"], ParseSections(L"[A]\nx=2\n[B]\ny=2\n"));
}

TEST_F(SimSettings, OfOneSectionTheLastReleaseStands) {
    first.SetString(L"A", L"x", L"2");
    second.SetString(L"a", L"x", L"3");
    second.Release();
    first.Release();
    EXPECT_EQ(host->files[L"f"], ParseSections(L"[A]\nx=2\n[B]\ny=1\n[C]\nz=1\n"));
}

TEST_F(SimSettings, ASectionThatIsNeitherTextNorLinesIsError13) {
    EXPECT_EQ(ErrorOf([&] { first.SetSection(L"A", Value(1.5)); }), 13);
    first.Release();
    EXPECT_EQ(host->files[L"f"], ParseSections(L"[A]\nx=1\n[B]\ny=1\n[C]\nz=1\n"));
}

}  // namespace
}  // namespace ace::sim
