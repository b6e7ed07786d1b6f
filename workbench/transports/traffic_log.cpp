#include "workbench/transports/traffic_log.h"

#include <algorithm>
#include <ctime>
#include <iomanip>
#include <ostream>
#include <sstream>

#include <ace/core/text.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/instrument_bytes.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr char Separator = '\t';

/// A text as a field: what would break the line becomes a blank.
std::string Field(StringView text) {
    String plain(text);
    std::replace_if(plain.begin(), plain.end(), IsControl, L' ');
    return ToUtf8(plain);
}

std::string UtcTimeText(std::chrono::system_clock::time_point time) {
    const auto sinceEpoch =
        std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch()).count();
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(time));
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    std::ostringstream text;
    text << std::put_time(&parts, "%Y-%m-%dT%H:%M:%S.") << std::setw(3) << std::setfill('0')
         << sinceEpoch % 1000 << 'Z';
    return text.str();
}

}  // namespace

TrafficLog::TrafficLog(std::ostream& out, std::function<TrafficPlace()> place, Now now) {
    WriteTo(out, std::move(place), std::move(now));
}

void TrafficLog::WriteTo(std::ostream& out, std::function<TrafficPlace()> place, Now now) {
    x_out = &out;
    x_place = std::move(place);
    x_now = now ? std::move(now) : Now(std::chrono::system_clock::now);
    out << "time\tmoment\tfrequency/Hz\ttransport\taddress\tbytes\twhat happened\n" << std::flush;
}

TrafficLog::Entry TrafficLog::Begin(StringView transport, StringView address) const {
    Entry entry{{}, String(transport), String(address)};
    if (x_out == nullptr) {
        return entry;
    }
    const TrafficPlace place = x_place ? x_place() : TrafficPlace{};
    const String hertz = place.hertz == 0.0 ? String() : FormatGeneral(place.hertz, L'.');
    entry.start = UtcTimeText(x_now());
    for (const StringView field :
         {StringView(place.moment), StringView(hertz), transport, address}) {
        entry.start += Separator + Field(field);
    }
    return entry;
}

void TrafficLog::End(const Entry& entry, std::string_view bytes, StringView what) {
    const String told = String(what) + remark;
    if (x_out != nullptr) {
        *x_out << entry.start << Separator << '"' << ReadableBytes(bytes) << '"' << Separator
               << Field(told) << '\n'
               << std::flush;
    }
    if (onLine) {
        onLine({entry.transport, entry.address, bytes, told});
    }
}

bool TrafficLog::IsGood() const {
    return x_out == nullptr || x_out->good();
}

}  // namespace ace::workbench
