/// Actions of all kinds to show.
#pragma once

#include "support/engine_fixture.h"

namespace ace::test {

inline p_Action Gpib(std::int32_t address, const String& command) {
    aceRemote record;
    record.GpibAddress = address;
    record.Command = command;
    return Action(atRemote, record);
}
inline p_Action Serial(std::int32_t port, const String& command) {
    aceRemote record;
    record.Iface = aceRemote::Serial;
    record.SerComPort = port;
    record.Command = command;
    return Action(atRemote, record);
}
/// Over TCP/IP, or over an interface of which nobody knows.
inline p_Action Tcp(const String& host, std::int32_t port, const String& command,
                    std::int32_t iface = aceRemote::TcpIp) {
    aceRemote record;
    record.Iface = iface;
    record.TcpHost = host;
    record.TcpPort = port;
    record.Command = command;
    return Action(atRemote, record);
}
inline p_Action Started(const String& program) {
    aceRemote record;
    record.Program = program;
    return Action(atRemote, record);
}
inline p_Action Sound(const String& waveFile) {
    aceNotify record;
    record.WaveFile = waveFile;
    return Action(atNotify, record);
}
inline p_Action Api(const String& program) {
    aceAPI record;
    record.Program = program;
    return Action(atAPI, record);
}
inline p_Action Device(p_ActionTypes kind, const String& name) {
    aceSetDevice record;
    record.DevName = name;
    return Action(kind, record);
}
inline p_Action Amplifier(const String& name, IAmplifierState state) {
    aceSetDevice record;
    record.DevName = name;
    record.AmpState = state;
    return Action(atSwitchAmp, record);
}
inline p_Action Unit(const String& name, const String& path) {
    aceSetDevice record;
    record.DevName = name;
    record.Path = path;
    return Action(atSwitchUnit, record);
}
inline p_Action Synchronised(const String& generator) {
    aceTrackFreq record;
    record.GenName = generator;
    return Action(atTrackFreq, record);
}
inline p_Action Tracked(const String& monitor) {
    aceTrackFreq record;
    record.MoniName = monitor;
    return Action(atTrackFreq, record);
}

inline const p_Action PathA = Unit(L"Unit", L"Path A");
inline const p_Action Camera = Device(atCheckEut, L"Camera");
inline const p_Action CloseTheDoor = Tell(L"Close the door");

}  // namespace ace::test
