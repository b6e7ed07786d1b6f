#include "workbench/transports/gpib_library.h"

#include <dlfcn.h>

#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

struct ErrorRow {
    int code;
    StringView text;
};

constexpr ErrorRow ErrorRows[] = {
    {0, L"EDVR (error 0): the operating system or the driver failed"},
    {1, L"ECIC (error 1): the board is not the controller in charge"},
    {2, L"ENOL (error 2): no listener on the bus"},
    {3, L"EADR (error 3): the board is not addressed correctly"},
    {4, L"EARG (error 4): invalid argument"},
    {5, L"ESAC (error 5): the board is not the system controller"},
    {6, L"EABO (error 6): the transfer was aborted"},
    {7, L"ENEB (error 7): there is no such board"},
    {8, L"EDMA (error 8): DMA failed"},
    {10, L"EOIP (error 10): another transfer is under way"},
    {11, L"ECAP (error 11): the board can't do this"},
    {12, L"EFSO (error 12): file operation failed"},
    {14, L"EBUS (error 14): the bus failed while commands were sent"},
    {15, L"ESTB (error 15): status bytes were lost"},
    {16, L"ESRQ (error 16): the service request line is stuck"},
    {20, L"ETAB (error 20): a table has no more room"},
};

[[noreturn]] void RaiseUnusable(const String& why) {
    throw RunTimeError(TransportErrors::CannotOpen, L"GPIB: " + why);
}

String LoaderText() {
    const char* text = ::dlerror();
    return text != nullptr ? FromUtf8(text) : String(L"unknown reason");
}

}  // namespace

String TextOf(const GpibStatus& status) {
    String text = L"error " + std::to_wstring(status.error);
    for (const ErrorRow& row : ErrorRows) {
        if (row.code == status.error) {
            text = row.text;
        }
    }
    return (status.word & Ni488::TimoBit) != 0 ? text + L", the time-out passed" : text;
}

struct GpibLibrary::Functions {
    int (*ibdev)(int, int, int, int, int, int) = nullptr;
    int (*ibwrt)(int, const void*, long) = nullptr;
    int (*ibonl)(int, int) = nullptr;
    int (*threadIbsta)() = nullptr;
    int (*threadIberr)() = nullptr;
    const volatile int* ibsta = nullptr;
    const volatile int* iberr = nullptr;

    explicit Functions(const std::string& path)
        : x_path(FromUtf8(path)), x_library(::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (x_library == nullptr) {
            RaiseUnusable(L"the library can't be loaded: " + LoaderText());
        }
    }
    Functions(const Functions&) = delete;
    Functions& operator=(const Functions&) = delete;
    ~Functions() { ::dlclose(x_library); }

    /// Takes the symbol if the library has it.
    template <class Pointer>
    bool Find(const char* name, Pointer& pointer) {
        pointer = reinterpret_cast<Pointer>(::dlsym(x_library, name));
        return pointer != nullptr;
    }
    template <class Pointer>
    void Need(const char* name, Pointer& pointer) {
        if (!Find(name, pointer)) {
            RaiseUnusable(L"the library " + x_path + L" does not export " + FromUtf8(name));
        }
    }

  private:
    String x_path;
    void* x_library;
};

GpibLibrary::GpibLibrary(const std::string& path) {
    if (path.empty()) {
        RaiseUnusable(
            L"there is no driver library; the configuration names one by [Gpib] Library=<file>");
    }
    x_functions = std::make_unique<Functions>(path);
    x_functions->Need("ibdev", x_functions->ibdev);
    x_functions->Need("ibwrt", x_functions->ibwrt);
    x_functions->Need("ibonl", x_functions->ibonl);
    if (!x_functions->Find("ThreadIbsta", x_functions->threadIbsta) ||
        !x_functions->Find("ThreadIberr", x_functions->threadIberr)) {
        x_functions->Need("ibsta", x_functions->ibsta);
        x_functions->Need("iberr", x_functions->iberr);
    }
}

GpibLibrary::~GpibLibrary() = default;

int GpibLibrary::Ibdev(int board, int primary, int secondary, int timeOut, int sendEoi,
                       int endOfString) {
    return x_functions->ibdev(board, primary, secondary, timeOut, sendEoi, endOfString);
}

GpibStatus GpibLibrary::Ibwrt(int device, const std::string& bytes) {
    x_functions->ibwrt(device, bytes.data(), static_cast<long>(bytes.size()));
    return Status();
}

GpibStatus GpibLibrary::Ibonl(int device, int online) {
    x_functions->ibonl(device, online);
    return Status();
}

GpibStatus GpibLibrary::Status() const {
    if (x_functions->ibsta == nullptr) {
        return {x_functions->threadIbsta(), x_functions->threadIberr()};
    }
    return {*x_functions->ibsta, *x_functions->iberr};
}

}  // namespace ace::workbench
