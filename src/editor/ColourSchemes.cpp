#include "editor/ColourSchemes.h"

#include "editor/EditorProperties.h"

namespace {

struct Row {
    uint32_t text, back;  // 0x00BBGGRR
    bool bold = false;
};

// Rows in the order of CEditorProperties::styles. The scheme "Default" is what that table begins with.
struct Scheme {
    bool lineNumbers;
    Row rows[CEditorProperties::kStyles];
};

constexpr Scheme kBorland = {true,
                             {
                                 {0xC0C0C0, 0x800000},
                                 {0xC0C0C0, 0x800000},
                                 {0x00FFFF, 0x800000},
                                 {0x00FFFF, 0x800000},
                                 {0x00FFFF, 0x800000},
                                 {0x00FFFF, 0x800000},
                                 {0xC0C0C0, 0x800000, true},
                                 {0x00FFFF, 0x800000},
                                 {0x00FFFF, 0x800000},
                                 {0x004080, 0xC0C0FF},
                                 {0x00FFFF, 0x800000},
                                 {0x00FFFF, 0x800000},
                                 {0x000000, 0x008000},
                                 {0x000000, 0xC0C0C0},
                                 {0x00FFFF, 0xFFFFFF},
                             }};

constexpr Scheme kVisualC = {false,
                             {
                                 {0x008000, 0xFFFFFF},
                                 {0x008000, 0xFFFFFF},
                                 {0x000000, 0xFFFFFF},
                                 {0xFF0000, 0xFFFFFF},
                                 {0x000000, 0xFFFFFF},
                                 {0x004080, 0xFFFFFF},
                                 {0xFF0000, 0xFFFFFF},
                                 {0x000000, 0xFFFFFF},
                                 {0x000000, 0xFFFFFF},
                                 {0x004080, 0xC0C0FF},
                                 {0x000000, 0xFFFFFF},
                                 {0x000000, 0xFFFFFF},
                                 {0x000000, 0x40C040},
                                 {0xFFFFFF, 0x000000},
                                 {0x000000, 0xFFFFFF},
                             }};

constexpr Scheme kMidnight = {false,
                              {
                                  {0x008000, 0x000000},
                                  {0x008000, 0x000000},
                                  {0xFFFFFF, 0x000000},
                                  {0xFF0000, 0x000000},
                                  {0xFFFFFF, 0x000000},
                                  {0x004080, 0x000000},
                                  {0xFF0000, 0x000000},
                                  {0xFFFFFF, 0x000000},
                                  {0xFFFFFF, 0x000000},
                                  {0x004080, 0xC0C0FF},
                                  {0xFFFFFF, 0x000000},
                                  {0xFFFFFF, 0x000000},
                                  {0x000000, 0x40C040},
                                  {0x000000, 0xFFFFFF},
                                  {0xFFFFFF, 0x000000},
                              }};

// In the order of kColourSchemes; null: the table's own beginning.
constexpr std::array<const Scheme *, kColourSchemes.size()> kTables = {nullptr, &kBorland, &kVisualC, &kMidnight};

}  // namespace

void ApplyColourScheme(CEditorProperties &properties, size_t scheme) {
    if (scheme >= kTables.size()) return;
    const Scheme *table = kTables[scheme];
    properties.lineNumbers = table && table->lineNumbers;
    properties.ResetStyles();
    if (!table) return;
    for (size_t i = 0; i < properties.styles.size(); ++i) {
        CStyle &style = properties.styles[i];
        const Row &row = table->rows[i];
        style = {style.id, style.name, row.text, row.back, row.bold};
    }
}
