#include <sim_context.h>
#include <symbol.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <map>

#include "chip/ChipLibrary.h"

namespace {

constexpr uint16_t kErasedBaseline = 0xfff;
constexpr uint32_t kIdBegin18 = 0x200000, kIdEnd18 = 0x200008;

std::string HexText(uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", value);
    return text;
}

// Reads and writes of registers that aren't there stop the library, unless told otherwise; a real chip doesn't mind.
void GoOnAtMissingRegisters() {
    for (const char *name : {"BreakOnInvalidRegisterRead", "BreakOnInvalidRegisterWrite"})
        if (auto *option = dynamic_cast<Boolean *>(globalSymbolTable().find("chip." + std::string(name))))
            option->set(false);
}

}  // namespace

std::vector<std::string> CSimChip::Types() {
    StartLibrary();
    std::vector<std::string> types;
    for (const ProcessorConstructor *maker : *ProcessorConstructor::GetList())
        for (const char *known : maker->names) {
            if (!known || !std::string(known).starts_with("pic1")) continue;
            std::string type = known;
            if (type == "pic16cr83" || type == "pic16cr84") continue;  // listed by the library, but never made
            std::transform(type.begin(), type.end(), type.begin(), [](unsigned char c) { return std::toupper(c); });
            types.push_back(std::move(type));
        }
    std::sort(types.begin(), types.end());
    types.erase(std::unique(types.begin(), types.end()), types.end());
    return types;
}

std::unique_ptr<CSimChip> CSimChip::Create(const std::string &type, std::string &error) try {
    ProcessorConstructor *maker = FindMaker(type);
    if (!maker) {
        error = "The simulator has no chip \"" + type + "\".";
        return nullptr;
    }
    static bool created = false;
    if (created) {
        error = "There is a simulated chip already.";
        return nullptr;
    }
    created = true;
    auto *cpu = dynamic_cast<pic_processor *>(CSimulationContext::GetContext()->add_processor(maker, "chip"));
    if (!cpu || !cpu->stack || !cpu->pc) {
        error = "The simulator can't make the chip \"" + type + "\".";
        return nullptr;
    }
    GoOnAtMissingRegisters();
    // PIC10F204 would start beyond its memory.
    if (cpu->pc->get_reset_address() >= cpu->program_memory_size())
        cpu->pc->set_reset_address(cpu->program_memory_size() - 1);
    auto impl = std::make_unique<Impl>(*cpu, dynamic_cast<_16bit_processor *>(cpu) != nullptr);
    std::unique_ptr<CSimChip> chip(new CSimChip(std::move(impl)));
    chip->impl_->controls = chip->impl_->FindControls(*chip);
    return chip;
} catch (...) {
    error = "The simulator failed to make the chip \"" + type + "\".";
    return nullptr;
}

CSimChip::CSimChip(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

CSimChip::~CSimChip() {
    gi.remove_interface(impl_->resetListener.get_id());
}

bool CSimChip::Load(const ChipProgram &program, std::string &error) try {
    pic_processor &cpu = impl_->cpu;
    for (const ChipProgram::Word &word : program.code)
        if (word.address >= ProgramSize() || (impl_->isPic18 && word.address % 2)) {
            error = "The program has code at " + HexText(word.address) + ", but the chip's program memory ends at " +
                    HexText(ProgramSize() - 1) + ".";
            return false;
        }
    for (const ChipProgram::Word &byte : program.eeprom)
        if (byte.address >= EepromSize()) {
            error = "The program has EEPROM data at " + HexText(byte.address) + ", but the chip has " +
                    std::to_string(EepromSize()) + " bytes.";
            return false;
        }

    impl_->isAtPowerOn = false;
    // The former instructions are the library's, and not to be deleted while its trace may name them.
    for (uint32_t index = 0; index < cpu.program_memory_size(); ++index)
        cpu.program_memory[index] = &cpu.bad_instruction;
    for (const ChipProgram::Word &word : program.code)
        static_cast<Processor &>(cpu).init_program_memory(word.address, word.value);
    // Baseline chips start at their last word, which isn't the program's: a constant from the factory, then address 0.
    if (const unsigned int start = cpu.pc->get_reset_address(); start > 0 && impl_->IsEmpty(start))
        static_cast<Processor &>(cpu).init_program_memory(start, kErasedBaseline);
    for (const ChipProgram::Word &byte : program.eeprom) cpu.eeprom->change_rom(byte.address, byte.value & 0xff);

    if (!impl_->isPic18) {
        for (const ChipProgram::Word &word : program.config) cpu.set_config_word(word.address, word.value);
        return true;
    }
    // The library takes two bytes of configuration at once; what the program doesn't tell stays.
    std::map<uint32_t, uint16_t> pairs;
    for (const ChipProgram::Word &byte : program.config) {
        const uint32_t address = byte.address & ~1u;
        const bool isId = address >= kIdBegin18 && address < kIdEnd18;
        auto [pair, isNew] = pairs.try_emplace(address, uint16_t{0xffff});
        if (isNew && !isId)
            for (uint32_t half : {0u, 1u})
                if (const unsigned int former = cpu.get_config_word(address + half); former <= 0xff)
                    pair->second = half ? (pair->second & 0xff) | former << 8 : (pair->second & 0xff00) | former;
        const unsigned int shift = byte.address % 2 * 8;
        pair->second = (pair->second & ~(0xff << shift)) | (byte.value & 0xff) << shift;
    }
    for (const auto &[address, value] : pairs)
        if (address >= kIdBegin18 && address < kIdEnd18)
            cpu.set_out_of_range_pm(address, value);
        else
            cpu.set_config_word(address, value);
    return true;
} catch (...) {
    error = "The simulator failed to load the program.";
    return false;
}

bool CSimChip::IsPic18() const {
    return impl_->isPic18;
}

Core CSimChip::InstructionSet() const {
    return impl_->core;
}

uint32_t CSimChip::ProgramSize() const {
    return impl_->ToAddress(impl_->cpu.program_memory_size());
}

uint32_t CSimChip::ProgramCounter() const {
    return impl_->ToAddress(impl_->cpu.pc->value);
}

bool CSimChip::SetProgramCounter(uint32_t address) {
    if (address >= ProgramSize() || (impl_->isPic18 && address % 2)) return false;
    impl_->isAtPowerOn = false;
    impl_->cpu.pc->value = impl_->ToIndex(address);
    impl_->cpu.pc->update_pcl();
    return true;
}

uint8_t CSimChip::W() const {
    return static_cast<uint8_t>(impl_->cpu.Wget());
}

void CSimChip::SetW(uint8_t value) {
    impl_->isAtPowerOn = false;
    impl_->cpu.Wput(value);
    impl_->ReadWatched();
}

uint32_t CSimChip::WordAt(uint32_t address) const {
    const uint32_t index = impl_->ToIndex(address);
    if (address >= ProgramSize() || impl_->IsEmpty(index)) return impl_->isPic18 ? 0xffff : 0x3fff;
    return impl_->cpu.program_memory[index]->get_opcode();
}
