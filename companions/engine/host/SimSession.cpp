#include "SimSession.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "StopSettings.h"
#include "debugger/EngineApi.h"
#include "platform/NativePath.h"
#include "readers/ResultText.h"

namespace {

constexpr std::chrono::seconds kProfileInterest{2};  // of a run: then nobody asks for it any more
constexpr int kLeastRate = 1'000, kMostRate = 1'000'000'000;  // hertz, of what the simulator reckons well with

// "PIC16F628A", "16f628a" and the like are one type.
std::string TypeKey(std::string type) {
    std::transform(type.begin(), type.end(), type.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return type.starts_with("PIC") ? type.substr(3) : type;
}

// "c:\chips\PIC16F628A.chip" names a type by its file's name.
std::string TypeOf(const std::string &target) {
    std::string name = target.substr(target.find_last_of("\\/") + 1);
    return name.substr(0, name.find('.'));
}

}  // namespace

CSimSession::Loaded::Loaded(IChip &chip, std::unique_ptr<CImage> image)
    : map(std::move(image)),
      names(chip, map),
      breakpoints(chip.ProgramSize(), names),
      watchpoints(chip, names),
      control(chip, map, breakpoints, watchpoints),
      profile(map.Functions(), chip.ProgramSize()) {}

CSimSession::CSimSession(std::string type, std::unique_ptr<CSimChip> chip, std::unique_ptr<CRegisterInfo> registers)
    : type_(std::move(type)),
      chip_(std::move(chip)),
      registers_(std::move(registers)),
      face_(*chip_, registers_.get()),
      connections_(*chip_) {}

bool CSimSession::Load(const std::string &path, std::string &error) {
    auto image = CImage::Load(path, error);
    if (!image) return false;
    if (!image->Chip().empty() && TypeKey(image->Chip()) != TypeKey(type_)) {
        error = "The program is built for the " + image->Chip() + ", the project's chip is the " + type_ + ".";
        return false;
    }
    if (!chip_->Load(image->Program(), error)) return false;
    loaded_ = std::make_unique<Loaded>(face_, std::move(image));
    loaded_->control.TellPinsOf(connections_);
    Reset(true);
    return true;
}

bool CSimSession::IsLoaded(std::string &error) const {
    if (!loaded_) error = "No program is loaded.";
    return loaded_ != nullptr;
}

// --- The run ---

bool CSimSession::Reset(bool powerOn) {
    powerOn ? face_.PowerOnReset() : face_.Reset();
    loaded_->control.WasReset();
    loaded_->profile.Clear();
    return true;
}

bool CSimSession::Start(RunKind kind) {
    if (!loaded_->control.Start(kind)) return false;
    if (!profileAsked_) loaded_->control.CountInto(nullptr);
    profileAskedAt_ = Clock::now();
    return true;
}

CSession::SliceEnd CSimSession::Slice(CSessionEvents &events) {
    if (Clock::now() - profileAskedAt_ > kProfileInterest) loaded_->control.CountInto(nullptr);
    const SliceEnd end = loaded_->control.Slice(events);
    if (end.stopped) profileAsked_ = false;
    return end;
}

void CSimSession::Stop() { loaded_->control.Stop(); }

void CSimSession::TellInstructions(bool on) { loaded_->control.TellInstructions(on); }

SessionPlace CSimSession::Place() {
    const int address = static_cast<int>(chip_->ProgramCounter());
    return AddrToPos(address).value_or(SessionPlace{{}, 0, address});
}

int64_t CSimSession::Cycles() { return loaded_ ? static_cast<int64_t>(loaded_->control.Cycles()) : 0; }

// --- Values ---

bool CSimSession::Evaluate(const std::string &expression, int format, std::string &text, std::string &error) {
    if (!IsLoaded(error)) return false;
    if (expression == "_registers") {
        if (!registers_) {
            error = "There is no description of the registers of the " + type_ + ".";
            return false;
        }
        text = registers_->Text([this](uint32_t address) { return chip_->ReadRegister(address); }, chip_->W());
        return true;
    }
    auto parsed = CExpression::Parse(expression, error);
    if (!parsed) return false;
    auto value = loaded_->names.Evaluate(*parsed, error);
    if (value) text = FormatNumber(*value, format);
    return value.has_value();
}

bool CSimSession::Set(const std::string &name, int value, std::string &error) {
    return IsLoaded(error) && loaded_->names.Set(name, value, error);
}

std::optional<int> CSimSession::GetReg(int address) {
    auto value = address < 0 ? std::nullopt : chip_->ReadRegister(static_cast<uint32_t>(address));
    if (!value) return std::nullopt;
    return *value;
}

bool CSimSession::SetReg(int address, int value) {
    return address >= 0 && chip_->WriteRegister(static_cast<uint32_t>(address), static_cast<uint8_t>(value));
}

std::optional<uint16_t> CSimSession::RegNameToAddr(const std::string &name) {
    auto address = face_.FindRegister(name);
    if (!address || *address > UINT16_MAX) return std::nullopt;
    return static_cast<uint16_t>(*address);
}

std::optional<std::string> CSimSession::RegAddrToName(int address) {
    if (address < 0) return std::nullopt;
    const uint32_t place = static_cast<uint32_t>(address);
    if (const ChipRegister *found = registers_ ? registers_->At(place) : nullptr) return found->name;
    std::string name = chip_->RegisterName(place);
    if (name.empty()) return std::nullopt;
    return name;
}

std::optional<std::string> CSimSession::RegBits(const std::string &reg) {
    if (!registers_ || reg.empty()) return std::nullopt;
    const std::string name = reg.substr(reg[0] == '$' ? 1 : 0);
    uint32_t address = 0;
    auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), address);
    const bool isNumber = failure == std::errc() && end == name.data() + name.size();
    const ChipRegister *found = isNumber ? registers_->At(address) : registers_->Find(name);
    if (!found) return std::nullopt;
    return CRegisterInfo::BitText(*found);
}

std::vector<uint8_t> CSimSession::RegisterMap() {
    std::vector<uint8_t> map(chip_->DataSize());
    for (uint32_t address = 0; address < map.size(); address++) map[address] = chip_->HasRegister(address) ? 1 : 0;
    return map;
}

std::optional<int> CSimSession::SymbolToAddr(const std::string &name) {
    const ImageSymbol *symbol = loaded_ ? loaded_->map.FindSymbol(name) : nullptr;
    if (!symbol) return std::nullopt;
    return static_cast<int>(symbol->address);
}

int CSimSession::EepromSize() { return static_cast<int>(chip_->EepromSize()); }

bool CSimSession::IsInEeprom(int address, size_t count) const {
    return address >= 0 && static_cast<size_t>(address) + count <= chip_->EepromSize();
}

std::optional<std::vector<uint8_t>> CSimSession::ReadEeprom(int address, int count) {
    if (count < 0 || !IsInEeprom(address, static_cast<size_t>(count))) return std::nullopt;
    std::vector<uint8_t> bytes;
    for (int i = 0; i < count; i++) bytes.push_back(chip_->ReadEeprom(static_cast<uint32_t>(address + i)).value_or(0));
    return bytes;
}

bool CSimSession::WriteEeprom(int address, const std::vector<uint8_t> &bytes) {
    if (!IsInEeprom(address, bytes.size())) return false;
    for (size_t i = 0; i < bytes.size(); i++) {
        if (!chip_->WriteEeprom(static_cast<uint32_t>(address) + static_cast<uint32_t>(i), bytes[i])) return false;
    }
    return true;
}

// --- Source and lists ---

std::optional<CSession::Line> CSimSession::PosToAddr(const std::string &file, int line) {
    auto found = loaded_ ? loaded_->map.Image().FindLine(file, line) : std::nullopt;
    if (!found) return std::nullopt;
    return Line{static_cast<int>(found->address), found->line};
}

std::optional<SessionPlace> CSimSession::AddrToPos(int address) {
    if (!loaded_ || address < 0) return std::nullopt;
    auto place = loaded_->map.PlaceAt(static_cast<uint32_t>(address));
    if (!place) return std::nullopt;
    return SessionPlace{place->file, place->line, address};
}

std::optional<std::string> CSimSession::FrameList() { return FrameListText(chip_->Stack()); }

std::optional<std::string> CSimSession::ProfileList() {
    if (!loaded_) return std::nullopt;
    loaded_->control.CountInto(&loaded_->profile);
    profileAsked_ = true;
    profileAskedAt_ = Clock::now();
    std::vector<ProfileRow> rows;
    for (auto &row : loaded_->profile.Rows()) rows.push_back({std::move(row.name), row.cycles});
    return ProfileListText(rows);
}

// --- Places to stop at ---

std::optional<int> CSimSession::SetBreakpoint(const std::string &file, int line, std::string &error) {
    if (!IsLoaded(error)) return std::nullopt;
    auto id = loaded_->breakpoints.Set(nextId_, file, line, loaded_->map.AddressesOf(file, line));
    if (id == nextId_) nextId_++;
    if (!id && !loaded_->map.Image().FindLine(file, 0))
        error = "The program has no code of \"" + DisplayPath(file) + "\".";
    else if (!id)
        error = "Line " + std::to_string(line) + " of \"" + DisplayPath(file) + "\" has no code.";
    return id;
}

bool CSimSession::DeleteBreakpoint(int id) { return loaded_ && loaded_->breakpoints.Delete(id); }

bool CSimSession::SetBreakpointConditions(int id, const Conditions &conditions, std::string &error) {
    const BreakpointRule rule = {conditions.condition, conditions.conditionType, conditions.hitValue,
                                 conditions.hitType};
    return IsLoaded(error) && loaded_->breakpoints.SetRule(id, rule, error);
}

std::optional<int> CSimSession::BreakpointHitCount(int id) {
    return loaded_ ? loaded_->breakpoints.HitCount(id) : std::nullopt;
}

bool CSimSession::ResetBreakpointHitCount(int id) { return loaded_ && loaded_->breakpoints.ResetHitCount(id); }

std::optional<int> CSimSession::SetWatchpoint(const std::string &name, std::string &error) {
    auto id = IsLoaded(error) ? loaded_->watchpoints.Set(nextId_, name, error) : std::nullopt;
    if (id == nextId_) nextId_++;
    return id;
}

bool CSimSession::DeleteWatchpoint(int id) { return loaded_ && loaded_->watchpoints.Delete(id); }

// --- For plug-ins ---

bool CSimSession::WatchRegister(int handle, bool on) {
    return loaded_ && handle >= 0 && loaded_->control.TellChanges(static_cast<uint32_t>(handle), on);
}

bool CSimSession::SetClockRate(int hertz) {
    if (!loaded_ || hertz < kLeastRate || hertz > kMostRate) return false;
    clockRate_ = hertz;
    chip_->SetClockRate(hertz);
    return true;
}

std::optional<int> CSimSession::ConnectPin(const std::string &pin) {
    if (!loaded_ || !connections_.Connect(nextId_, pin)) return std::nullopt;
    return nextId_++;
}

bool CSimSession::ReleaseConnection(int connection) { return connections_.Release(connection); }
bool CSimSession::SetConnectionV(int connection, double volts) { return connections_.SetVolts(connection, volts); }
bool CSimSession::SetConnectionR(int connection, double ohms) { return connections_.SetOhms(connection, ohms); }
std::optional<double> CSimSession::PinV(int pin) { return connections_.PinVolts(pin); }
bool CSimSession::WatchPin(int pin, bool on) { return connections_.Watch(pin, on); }

std::optional<CSession::Change> CSimSession::TakeChange() {
    if (!loaded_) return std::nullopt;
    if (auto change = connections_.TakeChange()) return Change{true, change->id, 0, change->volts};
    if (auto change = loaded_->control.TakeChange()) return Change{false, change->first, change->second, 0};
    return std::nullopt;
}

std::string CSimSession::Settings() {
    if (!loaded_) return {};
    StopSettings settings;
    settings.nextId = nextId_;
    settings.clockRate = clockRate_;
    settings.registers = loaded_->control.Told();
    settings.connections = connections_.All();
    TakeStops(loaded_->breakpoints, loaded_->watchpoints, settings);
    return WriteStopSettings(settings);
}

void CSimSession::TakeSettings(const std::string &text) {
    StopSettings settings;
    if (!loaded_ || !ReadStopSettings(text, settings)) return;
    nextId_ = std::max(nextId_, settings.nextId);
    if (settings.clockRate > 0) SetClockRate(settings.clockRate);
    loaded_->control.TellAs(settings.registers);
    connections_.Replace(settings.connections);
    PutStops(settings, loaded_->breakpoints, loaded_->watchpoints);
}

std::unique_ptr<CSession> CreateSession(const std::string &target, std::string &error) {
    const std::string type = TypeOf(target);
    auto chip = CSimChip::Create(type, error);
    if (!chip) return nullptr;
    std::string noHeader;  // a chip without one runs all the same
    return std::make_unique<CSimSession>(type, std::move(chip), CRegisterInfo::Load(type, noHeader));
}
