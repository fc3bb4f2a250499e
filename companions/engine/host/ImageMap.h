// The program map of a run, out of its image.
#pragma once

#include <memory>
#include <utility>

#include "ProgramMap.h"

class CImageMap : public IProgramMap {
public:
    explicit CImageMap(std::unique_ptr<CImage> image) : image_(std::move(image)) {}

    const CImage &Image() const { return *image_; }

    const ImageSymbol *FindSymbol(const std::string &name) const override { return image_->FindSymbol(name); }
    const std::vector<ImageFunction> &Functions() const override { return image_->Functions(); }
    std::optional<ImagePlace> PlaceAt(uint32_t address) const override { return image_->PlaceAt(address); }
    bool IsLineStart(uint32_t address) const override { return image_->IsLineStart(address); }
    std::vector<uint32_t> AddressesOf(const std::string &file, int line) const override {
        return image_->AddressesOf(file, line);
    }

private:
    std::unique_ptr<CImage> image_;
};
