/// What all engine objects of a thread share, and the thread's services.
#pragma once

#include <array>

#include <ace/core/action_records.h>
#include <ace/core/module_table.h>
#include <ace/core/ports.h>
#include <ace/host/host_factory.h>

namespace ace {

class ILineObserver;

/// One working record per parameter type; a record keeps what the last user left in it.
struct WorkingRecords {
    aceWait Wait;
    aceAPI Api;
    aceNotify Notify;
    aceRemote Remote;
    aceTrackFreq TrackFreq;
    aceSetDevice SetDevice;
};

/// Texts whose memory is free for the next one, see `BorrowedText`.
struct SpareTexts {
    std::array<std::unique_ptr<String>, 8> texts;
    std::size_t count = 0;  ///< of those that are there, from index 0
};

/// Labels of the status line, as indexes of `ActionStatusTexts`.
enum StatusLabel : std::size_t { WaitLabel, GpibLabel, SerialLabel, TcpLabel, ProgramLabel };

/// The shared state of one thread. Sharing is deliberate: a new engine object resets parts of it,
/// and the working records of one object's action are those of the next action of any object.
/// The thread's own context lives until the thread has ended and the last engine that was made with
/// it has gone. One that somebody else makes outlives its engines, or is owned by a `shared_ptr`,
/// of which they then keep a copy.
class ThreadContext : public std::enable_shared_from_this<ThreadContext> {
  public:
    /// Uses the services that `factory` makes; none stands for the defaults.
    explicit ThreadContext(std::shared_ptr<IHostFactory> factory = nullptr);
    ThreadContext(const ThreadContext&) = delete;
    ThreadContext& operator=(const ThreadContext&) = delete;
    ~ThreadContext();

    /// The context of the calling thread; made on first use and kept until the thread ends. Error 7
    /// without memory for it. Error 51 from what runs behind that end, such as the destructor of a
    /// global object.
    static ThreadContext& Current();
    /// Tells where the calling thread's context gets its services. To be called before the first
    /// engine of the thread; later, it serves only what has not been made yet.
    static void InstallHost(std::shared_ptr<IHostFactory> factory);

    /// The services, made on first use and kept as long as the context. Error 91 when the factory
    /// answers without one.
    ITraceLog& TraceLog() { return Service(x_traceLog, &IHostFactory::MakeTraceLog); }
    ILanguage& Language() { return Service(x_language, &IHostFactory::MakeLanguage); }
    IUtilities& Utilities() { return Service(x_utilities, &IHostFactory::MakeUtilities); }
    ISystemServices& SystemServices() {
        return Service(x_systemServices, &IHostFactory::MakeSystemServices);
    }
    IDeviceList& DeviceList() { return Service(x_deviceList, &IHostFactory::MakeDeviceList); }
    IDeviceSettingsStore& DeviceSettings() {
        return Service(x_deviceSettings, &IHostFactory::MakeDeviceSettingsStore);
    }
    IGpibDriver& GpibDriver() { return Service(x_gpibDriver, &IHostFactory::MakeGpibDriver); }
    IUserDialogs& UserDialogs() { return Service(x_userDialogs, &IHostFactory::MakeUserDialogs); }
    IPlatform& Platform() { return Service(x_platform, &IHostFactory::MakePlatform); }
    IFormHost& FormHost() { return Service(x_formHost, &IHostFactory::MakeFormHost); }
    IHostFactory& Factory() { return *x_factory; }

    std::int32_t InstanceCount = 0;                 ///< engine objects alive
    Boolean ModuleInitialised;                      ///< `InitModule` has done its one-time part
    std::shared_ptr<IStatusDisplay> StatusDisplay;  ///< made by `InitModule`
    std::array<String, ProgramLabel + 1> ActionStatusTexts;  ///< by `StatusLabel`
    Boolean TestRunning;          ///< between the ends of `StartTest` and `StopTest`
    Boolean InitReceiverPending;  ///< latch of the property `InitReceiver`
    /// The output of following generators is on during the test. Decided before the test, and no
    /// new engine object resets it.
    Boolean GeneratorEnabled;
    std::shared_ptr<IEditor> Editor;
    std::shared_ptr<ICommentForm> CommentForm;         ///< made on first need
    std::shared_ptr<IComPortForm> ComPortForm;         ///< a new one with every engine object
    std::int32_t SocketHandle = -1;                    ///< the open TCP/IP connection, -1 for none
    std::int32_t DeviceSectionCounter = 100;           ///< highest device section number seen
    std::array<String, FileNameRows> ModuleFileNames;  ///< by `ModuleRow::nameRow`
    Boolean SystemCheck;                               ///< of the last emission file read
    std::int32_t EutCheckRequest = 0;                  ///< bits of `acEutCheck`
    String EutCheckComment;
    WorkingRecords DispatcherRecords;
    /// Rises whenever an action takes one of the dispatcher's records that go back into the list,
    /// or a walk writes into the record of an action that may be running. It says whether a record
    /// is still what a run made of it.
    std::uint32_t RecordUses = 0;
    /// What the reader of action lines fills, and the cleaning of lists uses. A line leaves alone
    /// what it does not name, so that an entry may have parts of the one read before.
    WorkingRecords ReaderRecords;
    /// Told of every line that a load reads, so that the place of an error can be named; the
    /// host's, which sets it, keeps it alive and takes it away. None for nobody.
    ILineObserver* LineObserver = nullptr;
    /// The action that runs, so that a host can name it: none between two, and once one that ran
    /// inside it has ended. After an error the one that failed, until the next one begins. It is to
    /// be compared with the places in the lists, which may have been changed since.
    const p_Action* RunningAction = nullptr;
    std::shared_ptr<IApiMacro> RunningMacro;  ///< the macro in progress, kept when idle
    ace::SpareTexts SpareTexts;

  private:
    template <class Interface>
    Interface& Service(std::shared_ptr<Interface>& slot,
                       std::shared_ptr<Interface> (IHostFactory::*make)()) {
        if (!slot) [[unlikely]] {
            MakeService(slot, make);
        }
        return *slot;
    }
    template <class Interface>
    [[gnu::cold, gnu::noinline]] void MakeService(
        std::shared_ptr<Interface>& slot, std::shared_ptr<Interface> (IHostFactory::*make)()) {
        try {
            slot = (x_factory.get()->*make)();
        } catch (const std::bad_alloc&) {
            Raise(Errors::OutOfMemory);
        }
        RequireMade(slot != nullptr);
    }
    static void RequireMade(bool made);

    std::shared_ptr<IHostFactory> x_factory;
    std::shared_ptr<ITraceLog> x_traceLog;
    std::shared_ptr<ILanguage> x_language;
    std::shared_ptr<IUtilities> x_utilities;
    std::shared_ptr<ISystemServices> x_systemServices;
    std::shared_ptr<IDeviceList> x_deviceList;
    std::shared_ptr<IDeviceSettingsStore> x_deviceSettings;
    std::shared_ptr<IGpibDriver> x_gpibDriver;
    std::shared_ptr<IUserDialogs> x_userDialogs;
    std::shared_ptr<IPlatform> x_platform;
    std::shared_ptr<IFormHost> x_formHost;
};

/// The object behind `pointer`, which may be unset: then error 91.
template <class Object>
std::shared_ptr<Object> Required(const std::shared_ptr<Object>& pointer) {
    if (!pointer) {
        Raise(Errors::ObjectNotSet);
    }
    return pointer;
}

}  // namespace ace
