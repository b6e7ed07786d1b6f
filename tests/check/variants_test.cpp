#include "check/variants_fixture.h"

namespace ace::workbench {

namespace {

using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAreArray;

/// The files of a set as the program reads them.
struct ReadSet {
    ReadSet(const VariantSet& set, const FileSet& files)
        : path(FromUtf8(set.Main())),
          document(files.at(set.Main())),
          benchDocument(TextIn(files, "bench.ini")),
          setUp(ReadSetUp(document, path, {})),
          answers(FromUtf8(TextIn(files, "answers.txt")), L"answers.txt"),
          faults(
              std::make_shared<FaultRules>(FromUtf8(TextIn(files, "faults.txt")), L"faults.txt")),
          host(std::make_shared<BenchHost>(Clock::Virtual, TransportChoice(), faults)) {
        if (HasBench()) {
            ReadDevices(benchDocument, L"bench.ini", *host);
        }
    }

    bool HasBench() const { return !benchDocument.SectionNames().empty(); }

    String path;
    SettingsDocument document;
    SettingsDocument benchDocument;  ///< empty without a bench
    TestSetUp setUp;
    Answers answers;
    std::shared_ptr<FaultRules> faults;
    std::shared_ptr<BenchHost> host;
};

CheckInput InputOf(const ReadSet& read) {
    CheckInput input;
    input.document = &read.document;
    input.path = read.path;
    input.setUp = read.setUp;
    if (read.HasBench()) {
        input.bench = &read.host->bench;
        input.benchDocument = read.benchDocument;
    }
    input.benchPath = L"bench.ini";
    input.answers = &read.answers;
    input.answersPath = L"answers.txt";
    input.faults = read.faults.get();
    input.faultsPath = L"faults.txt";
    input.here = true;
    return input;
}

std::string EndOf(Outcome outcome) {
    return outcome == Outcome::Finished ? "finished"
           : outcome == Outcome::Failed ? "ends"
                                        : "stopped";
}

/// "ri.ini:37: [ActionsOnSR1]..." of a file that is refused, as "ri.ini:37".
std::string PlaceOf(const std::string& refusal) {
    return refusal.substr(0, refusal.find(':', refusal.find(':') + 1));
}

}  // namespace

std::vector<std::string> VariantsTest::FindingsOfSet(const FileSet& files) {
    std::vector<std::string> findings;
    const ReadSet read(GetParam(), files);
    const CheckInput input = InputOf(read);
    for (const Finding& finding : FindingsOf(CheckedFile(input))) {
        EXPECT_THAT(finding.meaning, Not(IsEmpty()));
        EXPECT_THAT(finding.advice, Not(IsEmpty()));
        findings.push_back(ToUtf8(finding.place.file) + ":" + std::to_string(finding.place.line) +
                           " " + ToUtf8(finding.rule->name));
    }
    return findings;
}

Happened VariantsTest::Run(const FileSet& files) const {
    for (const auto& [name, text] : files) {
        Write(name, text);
    }
    try {
        ReadSet read(GetParam(), files);
        KeptLines kept;
        Session session(read.host, read.setUp, read.answers, kept);
        try {
            session.Load(read.path);
        } catch (const CommandError& error) {
            return {"load", 0, {ToUtf8(error.text)}, {}};
        }
        const Outcome outcome = session.Run();
        return {EndOf(outcome), session.Counts().moments, kept.lines, kept.times};
    } catch (const CommandError& error) {
        return {"refused " + PlaceOf(ToUtf8(error.text)), 0, {}, {}};
    }
}

namespace {

TEST_P(VariantsTest, TheGoodSetRunsToItsEndAndHasNoFinding) {
    EXPECT_THAT(FindingsOfSet(GoodSet(GetParam())), IsEmpty());
    const Happened good = Run(GoodSet(GetParam()));
    EXPECT_EQ(good.end, "finished");
    EXPECT_THAT(good.lines, Not(IsEmpty()));
}

TEST_P(VariantsTest, EachSlipIsFoundBeforeTheRunWithItsLineAndRule) {
    for (const Variant& variant : AllVariants(GetParam())) {
        SCOPED_TRACE(variant.name);
        if (!variant.run.starts_with("refused")) {
            EXPECT_THAT(FindingsOfSet(Patched(GetParam(), variant)),
                        UnorderedElementsAreArray(variant.findings));
        }
    }
}

TEST_P(VariantsTest, EachSlipDoesToTheTestWhatTheTableSays) {
    const Happened good = Run(GoodSet(GetParam()));
    for (const Variant& variant : AllVariants(GetParam())) {
        SCOPED_TRACE(variant.name);
        const Happened bad = Run(Patched(GetParam(), variant));
        if (variant.run == "same") {
            EXPECT_EQ(bad.end, good.end);
            EXPECT_EQ(bad.moments, good.moments);
            EXPECT_EQ(bad.lines, good.lines);
            EXPECT_EQ(bad.times, good.times);
        } else if (variant.run == "changes") {
            EXPECT_THAT(bad.end, ::testing::AnyOf("finished", "stopped"));
            EXPECT_FALSE(bad == good);
        } else {
            EXPECT_EQ(bad.end, variant.run);
        }
    }
}

TEST_P(VariantsTest, WhateverChangesOrEndsTheTestIsToldBeforeIt) {
    std::size_t told = 0;
    for (const Variant& variant : AllVariants(GetParam())) {
        SCOPED_TRACE(variant.name);
        EXPECT_FALSE(variant.edits.empty());
        if (variant.run.starts_with("refused")) {
            EXPECT_THAT(variant.run, StartsWith("refused " + variant.file + ":"));
        } else if (variant.run != "same") {
            EXPECT_THAT(variant.findings, Not(IsEmpty()));
        }
        told += variant.run != "same" ? 1U : 0U;
    }
    EXPECT_GE(told, GetParam().least);
}

INSTANTIATE_TEST_SUITE_P(Sets, VariantsTest,
                         ::testing::Values(VariantSet{"ri", 60}, VariantSet{"monitoring", 12},
                                           VariantSet{"wireless", 12}, VariantSet{"matrix", 12}),
                         [](const auto& set) { return set.param.name; });

}  // namespace
}  // namespace ace::workbench
