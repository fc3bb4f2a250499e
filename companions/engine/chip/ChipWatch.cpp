#include "chip/ChipWatch.h"

#include <algorithm>
#include <string>
#include <utility>

#include "chip/ChipLibrary.h"
#include "chip/InstructionWrites.h"

bool CChipWatch::Has(const Register *where) const {
    const auto found = std::ranges::lower_bound(entries_, where, std::less<>(), &Entry::where);
    return found != entries_.end() && found->where == where;
}

void CChipWatch::Add(Register &where, bool changesByItself) {
    const auto found = std::ranges::lower_bound(entries_, &where, std::less<>(), &Entry::where);
    if (found != entries_.end() && found->where == &where) {
        ++found->wishes;
        return;
    }
    entries_.insert(found, {&where, 1});
    if (changesByItself) changing.push_back({&where, 0});
}

bool CChipWatch::Remove(Register &where) {
    const auto found = std::ranges::lower_bound(entries_, &where, std::less<>(), &Entry::where);
    if (found == entries_.end() || found->where != &where) return false;
    if (--found->wishes > 0) return true;
    entries_.erase(found);
    std::erase_if(changing, [&](const Changing &entry) { return entry.where == &where; });
    return true;
}

void CSimChip::Impl::ReadWatched() {
    for (CChipWatch::Changing &entry : watch.changing) entry.value = ValueOf(*entry.where);
}

// Behind an instruction that was to write `writes`, and whatever has happened since the one before.
void CSimChip::Impl::LookAtWatched(const WrittenBytes &writes) {
    for (size_t i = 0; i < writes.count; ++i)
        if (watch.Has(RegisterAt(writes.addresses[i]))) watch.written = true;
    for (CChipWatch::Changing &entry : watch.changing) {
        const unsigned int now = ValueOf(*entry.where);
        if (now != entry.value) watch.written = true;
        entry.value = now;
    }
}

bool CSimChip::WatchByte(uint32_t address, bool on) {
    Register *const where = impl_->RegisterAt(address);
    if (!where) return false;
    if (!on) return impl_->watch.Remove(*where);
    const std::string name = RegisterName(address);
    for (const char *indirect : {"INDF", "POSTINC", "POSTDEC", "PREINC", "PLUSW"})
        if (name.starts_with(indirect)) return false;
    const bool isPlainMemory = name.empty();
    impl_->watch.Add(*where, !isPlainMemory && where != impl_->cpu.pcl);
    impl_->ReadWatched();
    return true;
}

void CSimChip::ForgetWritten() {
    impl_->watch.written = false;
    impl_->ReadWatched();
}

bool CSimChip::TakeWritten() {
    return std::exchange(impl_->watch.written, false);
}
