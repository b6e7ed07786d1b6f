#include <map>
#include <string>
#include <thread>

#include <ace/core/actions_engine.h>

#include "support/fake_editor.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::IsEmpty;

/// Counts what it makes; makes nothing at all when told so.
class CountingFactory : public IHostFactory {
  public:
    std::map<std::string, int> made;
    bool isEmpty = false;

    std::shared_ptr<ITraceLog> MakeTraceLog() override {
        return Make<DefaultTraceLog>("trace log");
    }
    std::shared_ptr<ILanguage> MakeLanguage() override { return Make<DefaultLanguage>("language"); }
    std::shared_ptr<IUtilities> MakeUtilities() override {
        return Make<DefaultUtilities>("utilities");
    }
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return Make<DefaultSystemServices>("system services");
    }
    std::shared_ptr<IDeviceList> MakeDeviceList() override {
        return Make<DefaultDeviceList>("device list");
    }
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return Make<DefaultGpibDriver>("bus driver");
    }
    std::shared_ptr<IStatusDisplay> MakeStatusDisplay() override {
        return Make<DefaultStatusDisplay>("status display");
    }
    std::shared_ptr<IPlatform> MakePlatform() override { return Make<DefaultPlatform>("platform"); }
    std::shared_ptr<IFormHost> MakeFormHost() override {
        return Make<DefaultFormHost>("form host");
    }

  private:
    template <class Service>
    std::shared_ptr<Service> Make(const std::string& name) {
        ++made[name];
        return isEmpty ? nullptr : std::make_shared<Service>();
    }
};

struct ServiceRow {
    std::string name;
    void (*use)(ThreadContext&);
};

const ServiceRow Services[] = {
    {"trace log", [](ThreadContext& context) { context.TraceLog().IsEnabled(); }},
    {"language", [](ThreadContext& context) { context.Language().Text(1); }},
    {"utilities", [](ThreadContext& context) { context.Utilities().IsEqual(1.0, 2.0); }},
    {"system services", [](ThreadContext& context) { context.SystemServices().GetCurrentTest(); }},
    {"device list", [](ThreadContext& context) { context.DeviceList().SocketIsOpen(1); }},
    {"bus driver", [](ThreadContext& context) { context.GpibDriver().CloseDevice(1, 0); }},
    {"platform", [](ThreadContext& context) { context.Platform().ThreadId(); }},
    {"form host", [](ThreadContext& context) { context.FormHost().TextHeight(L"", 1.0F); }},
};

TEST(ThreadContextTest, MakesEachServiceOnceOnItsFirstUse) {
    const auto factory = std::make_shared<CountingFactory>();
    ThreadContext context(factory);
    EXPECT_THAT(factory->made, IsEmpty());
    for (const ServiceRow& service : Services) {
        SCOPED_TRACE(service.name);
        EXPECT_EQ(factory->made.count(service.name), 0U);
        service.use(context);
        service.use(context);
        EXPECT_EQ(factory->made[service.name], 1);
    }
    EXPECT_EQ(factory->made.size(), std::size(Services));
}

TEST(ThreadContextTest, AFactoryThatAnswersWithoutAnObjectIsError91) {
    const auto factory = std::make_shared<CountingFactory>();
    factory->isEmpty = true;
    ThreadContext context(factory);
    for (const ServiceRow& service : Services) {
        SCOPED_TRACE(service.name);
        EXPECT_EQ(ErrorOf([&] { service.use(context); }), 91);
    }
    factory->isEmpty = false;
    for (const ServiceRow& service : Services) {
        SCOPED_TRACE(service.name);
        EXPECT_EQ(ErrorOf([&] { service.use(context); }), 0);
    }
}

TEST(ThreadContextTest, ServicesStayAfterTheLastEngine) {
    const auto factory = std::make_shared<CountingFactory>();
    ThreadContext context(factory);
    for (int round = 0; round < 3; ++round) {
        const aceActionsEngine engine(context);
    }
    EXPECT_EQ(factory->made["language"], 1);
    EXPECT_EQ(factory->made["status display"], 3);
}

TEST(ThreadContextTest, StartsWithTheSharedStateEmpty) {
    const ThreadContext context;
    EXPECT_EQ(context.InstanceCount, 0);
    EXPECT_FALSE(context.ModuleInitialised);
    EXPECT_EQ(context.StatusDisplay, nullptr);
    EXPECT_THAT(context.ActionStatusTexts, ::testing::Each(L""));
    EXPECT_FALSE(context.TestRunning);
    EXPECT_FALSE(context.InitReceiverPending);
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(context.CommentForm, nullptr);
    EXPECT_EQ(context.ComPortForm, nullptr);
    EXPECT_EQ(context.SocketHandle, -1);
    EXPECT_EQ(context.DeviceSectionCounter, 100);
    EXPECT_EQ(context.ModuleFileNames.size(), 8U);
    EXPECT_THAT(context.ModuleFileNames, ::testing::Each(L""));
    EXPECT_FALSE(context.SystemCheck);
    EXPECT_EQ(context.EutCheckRequest, 0);
    EXPECT_EQ(context.EutCheckComment, L"");
    EXPECT_EQ(context.RunningMacro, nullptr);
}

TEST(ThreadContextTest, TheReaderHasWorkingRecordsOfItsOwn) {
    ThreadContext context;
    context.DispatcherRecords.Remote.Command = L"*RST";
    EXPECT_EQ(context.ReaderRecords.Remote, aceRemote());
}

// Each of these runs on a thread of its own, so that the thread's context is fresh.

TEST(ThreadContextTest, TwoEnginesOfAThreadShareItsState) {
    std::thread([] {
        aceActionsEngine first;
        aceActionsEngine second;
        ThreadContext& context = ThreadContext::Current();
        EXPECT_EQ(&first.State().Context, &context);
        EXPECT_EQ(&second.State().Context, &context);
        EXPECT_EQ(context.InstanceCount, 2);
        context.InitReceiverPending = true;
        EXPECT_TRUE(second.InitReceiver());
        EXPECT_FALSE(first.InitReceiver());
    }).join();
}

TEST(ThreadContextTest, AnotherThreadHasItsOwnState) {
    std::thread([] {
        aceActionsEngine here;
        ThreadContext& context = ThreadContext::Current();
        context.TestRunning = true;
        std::thread([&context] {
            aceActionsEngine there;
            EXPECT_NE(&ThreadContext::Current(), &context);
            EXPECT_EQ(ThreadContext::Current().InstanceCount, 1);
            EXPECT_FALSE(ThreadContext::Current().TestRunning);
        }).join();
        EXPECT_EQ(context.InstanceCount, 1);
        EXPECT_TRUE(context.TestRunning);
    }).join();
}

TEST(ThreadContextTest, AnEngineTakesTheServicesOfTheHostInstalledForItsThread) {
    std::thread([] {
        const auto factory = std::make_shared<CountingFactory>();
        ThreadContext::InstallHost(factory);
        const aceActionsEngine engine;
        EXPECT_EQ(factory->made["status display"], 1);
        EXPECT_EQ(factory->made["language"], 1);
        const auto later = std::make_shared<CountingFactory>();
        ThreadContext::InstallHost(later);
        ThreadContext::Current().Language();
        ThreadContext::Current().DeviceList();
        EXPECT_EQ(later->made.count("language"), 0U);
        EXPECT_EQ(later->made["device list"], 1);
    }).join();
}

TEST(ThreadContextTest, AHostInstalledOnAnotherThreadServesThatThreadAlone) {
    const auto factory = std::make_shared<CountingFactory>();
    std::thread([&] { ThreadContext::InstallHost(factory); }).join();
    std::thread([] { const aceActionsEngine engine; }).join();
    EXPECT_THAT(factory->made, IsEmpty());
}

// ---- the end -----------------------------------------------------------------------------------

/// Says when it goes, and that it is still there when the engine closes its socket.
class MortalList : public DefaultDeviceList {
  public:
    explicit MortalList(std::vector<std::string>& events) : x_events(events) {}
    MortalList(const MortalList&) = delete;
    MortalList& operator=(const MortalList&) = delete;
    ~MortalList() override { x_events.emplace_back("the services go"); }
    bool SocketIsOpen(std::int32_t) override { return true; }
    std::int32_t CloseSocket(std::int32_t) override {
        x_events.emplace_back("the socket is closed");
        return 0;
    }

  private:
    std::vector<std::string>& x_events;
};
class MortalHost : public IHostFactory {
  public:
    explicit MortalHost(std::vector<std::string>& events) : x_events(events) {}
    std::shared_ptr<IDeviceList> MakeDeviceList() override {
        return std::make_shared<MortalList>(x_events);
    }

  private:
    std::vector<std::string>& x_events;
};

TEST(ThreadContextTest, AnEngineThatOutlivesItsThreadKeepsItsServices) {
    std::vector<std::string> events;
    std::unique_ptr<aceActionsEngine> engine;
    std::thread([&] {
        ThreadContext::InstallHost(std::make_shared<MortalHost>(events));
        engine = std::make_unique<aceActionsEngine>();
        ThreadContext::Current().SocketHandle = 1;
    }).join();
    EXPECT_THAT(events, IsEmpty());
    engine.reset();
    EXPECT_THAT(events, ::testing::ElementsAre("the socket is closed", "the services go"));
}

TEST(ThreadContextTest, ServicesGoWithTheThreadWhenNoEngineIsLeft) {
    std::vector<std::string> events;
    std::thread([&] {
        ThreadContext::InstallHost(std::make_shared<MortalHost>(events));
        { const aceActionsEngine engine; }
        ThreadContext::Current().DeviceList();
        EXPECT_THAT(events, IsEmpty());
    }).join();
    EXPECT_THAT(events, ::testing::ElementsAre("the services go"));
}

/// Says when it goes.
class MortalEditor : public FakeEditor {
  public:
    MortalEditor(sim::SimHost& host, std::vector<std::string>& events)
        : FakeEditor(host), x_events(events) {}
    MortalEditor(const MortalEditor&) = delete;
    MortalEditor& operator=(const MortalEditor&) = delete;
    ~MortalEditor() override { x_events.emplace_back("the editor goes"); }

  private:
    std::vector<std::string>& x_events;
};

/// The editor keeps the engine's state, and the thread's context keeps the editor.
TEST(ThreadContextTest, AnEditorThatNobodyReleasedGoesWithTheThreadBeforeTheServices) {
    sim::SimHost host;
    std::vector<std::string> events;
    std::thread([&] {
        ThreadContext::InstallHost(std::make_shared<MortalHost>(events));
        ThreadContext& context = ThreadContext::Current();
        context.DeviceList();
        const auto editor = std::make_shared<MortalEditor>(host, events);
        context.Editor = editor;
        aceActionsEngine engine;
        engine.AddSubrange(1);
        EXPECT_EQ(editor->loaded.get(), &engine.State());
        EXPECT_THAT(events, IsEmpty());
    }).join();
    EXPECT_THAT(events, ::testing::ElementsAre("the editor goes", "the services go"));
}

/// A global of the thread: made first, so it goes behind the thread's context.
TEST(ThreadContextTest, AnEngineOfAGlobalGoesInOrderAndANewOneIsRefused) {
    static std::vector<std::string> events;
    struct Global {
        std::unique_ptr<aceActionsEngine> engine;
        ~Global() {
            engine.reset();
            events.push_back("error " + std::to_string(ErrorOf([] { aceActionsEngine late; })));
        }
    };
    std::thread([] {
        thread_local Global global;
        global.engine = nullptr;
        ThreadContext::InstallHost(std::make_shared<MortalHost>(events));
        global.engine = std::make_unique<aceActionsEngine>();
        ThreadContext::Current().SocketHandle = 1;
    }).join();
    EXPECT_THAT(events,
                ::testing::ElementsAre("the socket is closed", "the services go", "error 51"));
}

TEST(ThreadContextTest, AContextOfASharedOwnerLivesAsLongAsItsEngine) {
    std::vector<std::string> events;
    auto context = std::make_shared<ThreadContext>(std::make_shared<MortalHost>(events));
    auto engine = std::make_unique<aceActionsEngine>(*context);
    context->SocketHandle = 1;
    context.reset();
    EXPECT_THAT(events, IsEmpty());
    engine.reset();
    EXPECT_THAT(events, ::testing::ElementsAre("the socket is closed", "the services go"));
}

TEST(EngineThreadDeathTest, AnotherThreadThanItsOwnIsAssertedInDebugBuilds) {
    aceActionsEngine engine;
    EXPECT_DEBUG_DEATH(std::thread([&] { engine.TestNumber(); }).join(),
                       "an engine serves the thread that made it");
}

TEST(ThreadContextTest, WithoutAHostTheDefaultsServe) {
    std::thread([] {
        ThreadContext::InstallHost(nullptr);
        aceActionsEngine engine;
        EXPECT_EQ(ErrorOf([&] {
                      engine.LoadActions(L"none", 1, aceTemplate);
                      EXPECT_FALSE(engine.StartTest());
                      EXPECT_FALSE(engine.StopTest());
                      engine.SaveActions(L"none");
                  }),
                  0);
    }).join();
}

TEST(ThreadContextTest, AnUnsetObjectThatIsNeededIsError91) {
    EXPECT_EQ(ErrorOf([] { Required(std::shared_ptr<int>()); }), 91);
    const auto object = std::make_shared<int>(3);
    EXPECT_EQ(Required(object), object);
}

}  // namespace
}  // namespace ace::test
