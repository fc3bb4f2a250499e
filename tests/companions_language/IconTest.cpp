#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

#include "IdHeader.h"
#include "LanguageModule.h"

namespace {

const std::filesystem::path kIcons = std::filesystem::path(THORNWELL_SOURCE_DIR) / "resources" / "icons";

std::set<std::string> DrawnIcons() {
    std::set<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(kIcons))
        if (entry.path().extension() == ".svg") names.insert(entry.path().stem().string());
    return names;
}

std::set<std::string> ListedIcons() {
    static const std::regex row("<file alias=\"([^\"]+)\\.svg\">([^<]+)\\.svg</file>");
    std::ifstream file(kIcons / "icons.qrc");
    std::set<std::string> names;
    for (std::string line; std::getline(file, line);) {
        std::smatch match;
        if (std::regex_search(line, match, row) && match[1] == match[2]) names.insert(match[1]);
    }
    return names;
}

QByteArray Recoloured(const std::string &name, const char *stroke) {
    QFile file(QString::fromStdString((kIcons / (name + ".svg")).string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll().replace("currentColor", stroke) : QByteArray();
}

QImage Rendered(const QByteArray &drawing, int size) {
    QSvgRenderer renderer(drawing);
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    if (renderer.isValid()) renderer.render(&painter);
    return image;
}

// How many pixels are at least half covered.
int CoveredPixels(const QImage &image) {
    int covered = 0;
    for (int y = 0; y < image.height(); y++)
        for (int x = 0; x < image.width(); x++)
            if (image.pixelColor(x, y).alpha() >= 128) covered++;
    return covered;
}

}  // namespace

TEST(Icons, AllThatCommandsAndTreesNameAreDrawn) {
    const auto drawn = DrawnIcons();
    for (const char *name :
         {"app", "file-asm", "file-c", "file-header", "file-lib", "file-other", "folder", "folder-open", "project",
          "project-active", "workspace", "chip", "error", "warning", "info"})
        EXPECT_TRUE(drawn.contains(name)) << name;
    for (const auto &command : CommandIds()) {
        const char *icon = module::CommandIcon(command.id);
        EXPECT_TRUE(!icon || drawn.contains(icon)) << icon;
    }
}

TEST(Icons, AllDrawingsAreInTheProgramsResources) {
    EXPECT_EQ(DrawnIcons(), ListedIcons());
}

TEST(Icons, ShowOnLightAndDarkAtTheSizesInUse) {
    for (const auto &name : DrawnIcons()) {
        for (int size : {16, 32}) {
            const QImage light = Rendered(Recoloured(name, "#3b3f45"), size);
            const int covered = CoveredPixels(light);
            EXPECT_GT(covered, size * size / 20) << name << " at " << size;
            EXPECT_EQ(CoveredPixels(Rendered(Recoloured(name, "#d5d9de"), size)), covered) << name << " at " << size;
        }
    }
}
