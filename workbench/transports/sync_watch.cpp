#include "workbench/transports/sync_watch.h"

#include <ace/host/forwarding.h>

namespace ace::workbench {

namespace {

/// The answer with which a program confirms its work.
constexpr StringView Confirmation = L"COMPLETED";

class SyncWatch final : public ForwardingSystemServices {
  public:
    SyncWatch(std::shared_ptr<ISystemServices> services, std::function<void()> onSilence)
        : ForwardingSystemServices(std::move(services)), x_onSilence(std::move(onSilence)) {}

    void SetProgressText(const String& text) override {
        const bool isUnanswered = text.empty() && x_isWaiting;
        x_isWaiting = false;
        Next().SetProgressText(text);
        if (isUnanswered && x_onSilence) {
            x_onSilence();
        }
    }
    String ReadMacroSync(std::int32_t key) override {
        x_isWaiting = true;
        String answer = Next().ReadMacroSync(key);
        x_isWaiting = answer != Confirmation;
        return answer;
    }

  private:
    std::function<void()> x_onSilence;
    bool x_isWaiting = false;  ///< a value was read that confirms nothing
};

}  // namespace

std::shared_ptr<ISystemServices> WatchSync(std::shared_ptr<ISystemServices> services,
                                           std::function<void()> onSilence) {
    return std::make_shared<SyncWatch>(std::move(services), std::move(onSilence));
}

}  // namespace ace::workbench
