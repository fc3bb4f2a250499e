// The session over the simulated chip.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "Breakpoints.h"
#include "ChipFace.h"
#include "Connections.h"
#include "CycleProfile.h"
#include "ImageMap.h"
#include "Names.h"
#include "RunControl.h"
#include "Session.h"
#include "Watchpoints.h"

class CSimSession : public CSession {
public:
    // `registers` may be null when there is nothing to know about this chip's.
    CSimSession(std::string type, std::unique_ptr<CSimChip> chip, std::unique_ptr<CRegisterInfo> registers);

    bool Load(const std::string &image, std::string &error) override;
    bool Reset(bool powerOn) override;
    bool Start(RunKind kind) override;
    SliceEnd Slice(CSessionEvents &events) override;
    void Stop() override;
    void TellInstructions(bool on) override;
    SessionPlace Place() override;
    int64_t Cycles() override;

    bool Evaluate(const std::string &expression, int format, std::string &text, std::string &error) override;
    bool Set(const std::string &name, int value, std::string &error) override;
    std::optional<int> GetReg(int address) override;
    bool SetReg(int address, int value) override;
    std::optional<uint16_t> RegNameToAddr(const std::string &name) override;
    std::optional<std::string> RegAddrToName(int address) override;
    std::optional<std::string> RegBits(const std::string &reg) override;
    std::vector<uint8_t> RegisterMap() override;
    std::optional<int> SymbolToAddr(const std::string &name) override;
    int EepromSize() override;
    std::optional<std::vector<uint8_t>> ReadEeprom(int address, int count) override;
    bool WriteEeprom(int address, const std::vector<uint8_t> &bytes) override;

    std::optional<Line> PosToAddr(const std::string &file, int line) override;
    std::optional<SessionPlace> AddrToPos(int address) override;
    std::optional<std::string> FrameList() override;
    std::optional<std::string> ProfileList() override;  // counts from such a call on, while there are more

    std::optional<int> SetBreakpoint(const std::string &file, int line, std::string &error) override;
    bool DeleteBreakpoint(int id) override;
    bool SetBreakpointConditions(int id, const Conditions &conditions, std::string &error) override;
    std::optional<int> BreakpointHitCount(int id) override;
    bool ResetBreakpointHitCount(int id) override;
    std::optional<int> SetWatchpoint(const std::string &name, std::string &error) override;
    bool DeleteWatchpoint(int id) override;

    bool SetClockRate(int hertz) override;
    bool WatchRegister(int handle, bool on) override;
    std::optional<int> ConnectPin(const std::string &pin) override;
    bool ReleaseConnection(int connection) override;
    bool SetConnectionV(int connection, double volts) override;
    bool SetConnectionR(int connection, double ohms) override;
    std::optional<double> PinV(int pin) override;
    bool WatchPin(int pin, bool on) override;
    std::optional<Change> TakeChange() override;

    std::string Settings() override;
    void TakeSettings(const std::string &settings) override;

private:
    using Clock = std::chrono::steady_clock;

    // All that a loaded program brings.
    struct Loaded {
        Loaded(IChip &chip, std::unique_ptr<CImage> image);

        CImageMap map;
        CNames names;
        CBreakpoints breakpoints;
        CWatchpoints watchpoints;
        CRunControl control;
        CCycleProfile profile;
    };

    bool IsInEeprom(int address, size_t count) const;
    bool IsLoaded(std::string &error) const;  // gives words when not

    std::string type_;
    std::unique_ptr<CSimChip> chip_;
    std::unique_ptr<CRegisterInfo> registers_;
    CChipFace face_;
    CConnections connections_;
    std::unique_ptr<Loaded> loaded_;
    int nextId_ = 1;                    // of breakpoints, watchpoints and connections
    int clockRate_ = 0;                 // hertz; 0: not set
    bool profileAsked_ = false;         // since the last stop
    Clock::time_point profileAskedAt_;  // the last time, or when the run command began
};
