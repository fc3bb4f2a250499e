// Values in a row of bytes, as a request and its reply carry them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Puts values into a buffer of fixed size. What doesn't fit makes the whole message unfit.
class CMessageWriter {
public:
    explicit CMessageWriter(std::span<std::byte> room) : room_(room) {}

    void PutNumber(int64_t value) { PutBytes(&value, sizeof value); }
    void PutReal(double value) { PutBytes(&value, sizeof value); }
    void PutText(std::string_view text);
    void PutBlock(std::span<const uint8_t> bytes);

    bool Fits() const { return fits_; }
    size_t Size() const { return used_; }

private:
    void PutBytes(const void *from, size_t size);

    std::span<std::byte> room_;
    size_t used_ = 0;
    bool fits_ = true;
};

// Takes them out in the same order. A message that ends too early gives zeros and empty texts, and is no longer Good.
class CMessageReader {
public:
    explicit CMessageReader(std::span<const std::byte> message) : rest_(message) {}

    int64_t Number();
    int Int() { return static_cast<int>(Number()); }
    double Real();
    std::string Text();
    std::vector<uint8_t> Block();

    bool IsGood() const { return good_; }

private:
    bool TakeBytes(void *to, size_t size);
    std::span<const std::byte> TakeSpan();

    std::span<const std::byte> rest_;
    bool good_ = true;
};
