/// What a simulated host knows of instruments, programs and macros.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include <ace/host/api_macro.h>

namespace ace::sim {

class SimHost;

/// Instruments behind the three transports. Everything answers unless it is named here.
struct SimInstruments {
    std::set<std::int32_t> absentGpib;  ///< board times 100 plus address of devices not on the bus
    std::int16_t nextGpibHandle = 0;    ///< each opening gets a handle of its own
    std::set<String> refusedEndpoints;  ///< "host:port" of peers that take no connection
    std::map<std::int32_t, String> sockets;  ///< endpoint of each socket ever opened
    std::int32_t nextSocket = 1;
    std::set<std::int16_t> brokenPorts;  ///< serial ports that stay closed
};

/// Programs that an action starts.
struct SimPrograms {
    std::map<String, std::int32_t> unstartable;  ///< error of a command line that can't be started
    std::map<String, double> identifiers;        ///< process of a command line; others count up
    double nextIdentifier = 1000.0;
    std::set<double> running;                  ///< processes that can be activated
    std::map<std::int32_t, String> macroSync;  ///< values of the synchronisation file by key
    std::deque<String> macroSyncAnswers;       ///< what reading finds before it finds the value
};

/// How a macro behaves.
struct SimMacroScript {
    bool loads = true;
    bool starts = true;
    std::deque<bool> results;              ///< answers of `GetResult`; success when used up
    String errorText;                      ///< why it does not start
    std::vector<std::int32_t> parameters;  ///< kinds of its inputs
    std::function<void()> whileRunning;    ///< runs inside `WaitFinished`
};

class SimApiMacro : public IApiMacro {
  public:
    explicit SimApiMacro(SimHost& host) : x_host(host) {}
    std::int16_t ParameterCount() override;
    MacroParameterInfo ParameterInfo(std::int32_t& index) override;
    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override;
    void Abort() override;
    bool GetResult() override;
    bool Execute(String& text, String& errorText, Value& value) override;
    void WaitFinished() override;

  private:
    SimMacroScript& Script() const;

    SimHost& x_host;
    String x_program;
};

}  // namespace ace::sim
