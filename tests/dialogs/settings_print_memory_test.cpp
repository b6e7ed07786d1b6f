/// Each allocation of a print fails, once or from there on for good.
#include <ace/core/actions_engine.h>

#include "sim/sim_host.h"
#include "support/allocation_counter.h"
#include "support/error_of.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

/// Counts the bus devices that are closed, and needs no memory for it.
struct CountingDriver final : DefaultGpibDriver {
    explicit CountingDriver(int& count) : closed(count) {}
    std::int32_t CloseDevice(std::int32_t, std::int32_t) override {
        ++closed;
        return 0;
    }
    int& closed;
};
struct CountingHost final : IHostFactory {
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return std::make_shared<CountingDriver>(closed);
    }
    int closed = 0;
};

/// A working engine with an open bus device in a set that it has once and in a numbered one, and an
/// object that has printed earlier lists of it.
struct Desk {
    Desk() {
        context.GpibDriver();
        FillLists(L"earlier");
        Print();
        FillLists(L"a command that needs memory of its own");
    }
    void FillLists(const String& command) {
        aceRemote record;
        record.Command = command;
        record.DrvHdl = 3;
        EngineState& state = working.State();
        state.MainSubrangeCount = 2;
        state.MainSubranges.Redim(0, 1);
        Fill(state.MainTest, EnterList, {Action(atRemote, record)});
        Fill(state.MainSubranges[1], LeaveList, {Action(atRemote, record)});
    }
    void Print() {
        rows.Redim(0, 0, 0, 1);
        printer->PrintStrings(aceTemplate, working, rows, 0);
    }

    std::shared_ptr<CountingHost> host = std::make_shared<CountingHost>();
    ThreadContext context{host};
    aceActionsEngine working{context};
    std::unique_ptr<aceActionsEngine> printer = std::make_unique<aceActionsEngine>(context);
    Array2D<String> rows;
};

/// True where the print has come so far.
bool FailAt(std::size_t n, bool forEver) {
    Desk desk;
    Desk whole;
    whole.Print();
    bool wasHit = false;
    {
        const FailingAllocations failing(n, forEver);
        const std::int32_t error = ErrorOf([&] { desk.Print(); });
        wasHit = failing.WasHit();
        EXPECT_EQ(error, wasHit ? 7 : 0);
    }
    desk.Print();
    EXPECT_EQ(desk.rows(0, 0), whole.rows(0, 0)) << "called again";
    desk.printer.reset();
    EXPECT_EQ(desk.host->closed, 0);
    return wasHit;
}

/// Memory is out from the n-th allocation on, for each n. The object goes right behind that print:
/// a second print of it would put a whole copy in the place of what the first one left.
TEST(PrintMemory, APrintThatEndsForWantOfMemoryClosesNoBusDeviceOfTheWorkingEngine) {
    for (std::size_t n = 1; n < 1000; ++n) {
        Desk desk;
        bool wasHit = false;
        {
            const FailingAllocations failing(n, true);
            ErrorOf([&] { desk.Print(); });
            wasHit = failing.WasHit();
        }
        desk.printer.reset();
        ASSERT_EQ(desk.host->closed, 0) << "allocation " << n;
        if (!wasHit) {
            EXPECT_GT(n, 10U);
            return;
        }
    }
    FAIL() << "no end";
}

TEST(PrintMemory, EachAllocationThatFailsIsError7AndThePrintSucceedsWhenThereIsMemory) {
    for (const bool forEver : {false, true}) {
        std::size_t n = 1;
        while (n < 1000 && FailAt(n, forEver)) {
            ++n;
        }
        EXPECT_GT(n, 10U);
        EXPECT_LT(n, 1000U);
    }
}

}  // namespace
}  // namespace ace::test
