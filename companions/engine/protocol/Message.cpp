#include "protocol/Message.h"

#include <cstring>

void CMessageWriter::PutBytes(const void *from, size_t size) {
    if (!fits_ || size > room_.size() - used_) {
        fits_ = false;
        return;
    }
    if (size > 0) memcpy(room_.data() + used_, from, size);
    used_ += size;
}

void CMessageWriter::PutText(std::string_view text) {
    PutNumber(static_cast<int64_t>(text.size()));
    PutBytes(text.data(), text.size());
}

void CMessageWriter::PutBlock(std::span<const uint8_t> bytes) {
    PutNumber(static_cast<int64_t>(bytes.size()));
    PutBytes(bytes.data(), bytes.size());
}

bool CMessageReader::TakeBytes(void *to, size_t size) {
    if (!good_ || size > rest_.size()) return good_ = false;
    memcpy(to, rest_.data(), size);
    rest_ = rest_.subspan(size);
    return true;
}

std::span<const std::byte> CMessageReader::TakeSpan() {
    const int64_t size = Number();
    if (size < 0 || static_cast<uint64_t>(size) > rest_.size()) good_ = false;
    if (!good_) return {};
    const auto taken = rest_.first(static_cast<size_t>(size));
    rest_ = rest_.subspan(taken.size());
    return taken;
}

int64_t CMessageReader::Number() {
    int64_t value = 0;
    return TakeBytes(&value, sizeof value) ? value : 0;
}

double CMessageReader::Real() {
    double value = 0;
    return TakeBytes(&value, sizeof value) ? value : 0;
}

std::string CMessageReader::Text() {
    const auto taken = TakeSpan();
    return {reinterpret_cast<const char *>(taken.data()), taken.size()};
}

std::vector<uint8_t> CMessageReader::Block() {
    const auto taken = TakeSpan();
    const auto *bytes = reinterpret_cast<const uint8_t *>(taken.data());
    return {bytes, bytes + taken.size()};
}
