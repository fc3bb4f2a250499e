#include "framework/DesktopTheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QPalette>
#include <QStandardPaths>
#include <QStyle>
#include <QToolTip>

#include "framework/Text.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"

namespace {

constexpr const char *kPortal = "org.freedesktop.portal.Desktop";
constexpr const char *kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char *kPortalSettings = "org.freedesktop.portal.Settings";
constexpr const char *kAppearance = "org.freedesktop.appearance";
constexpr const char *kColourScheme = "color-scheme";
enum ColourScheme : unsigned { kNoPreference = 0, kPreferDark = 1, kPreferLight = 2 };

struct Shade {
    QPalette::ColorRole role;
    QRgb colour, disabled;
};

constexpr QRgb kWindow = 0xff2b2d30, kText = 0xffdfe1e5, kFaint = 0xff6f737a;

constexpr Shade kDark[] = {
    {QPalette::Window, kWindow, kWindow},
    {QPalette::WindowText, kText, kFaint},
    {QPalette::Base, 0xff1e1f22, 0xff26282b},
    {QPalette::AlternateBase, 0xff26282b, 0xff26282b},
    {QPalette::Text, kText, kFaint},
    {QPalette::PlaceholderText, 0xff8c9099, kFaint},
    {QPalette::Button, 0xff393b40, 0xff323438},
    {QPalette::ButtonText, kText, kFaint},
    {QPalette::BrightText, 0xffff7b72, kFaint},
    {QPalette::Light, 0xff4e5157, 0xff4e5157},
    {QPalette::Midlight, 0xff43454a, 0xff43454a},
    {QPalette::Mid, 0xff232528, 0xff232528},
    {QPalette::Dark, 0xff1a1b1d, 0xff1a1b1d},
    {QPalette::Shadow, 0xff0f1011, 0xff0f1011},
    {QPalette::Highlight, 0xff2f65ca, 0xff43454a},
    {QPalette::HighlightedText, 0xffffffff, 0xffa0a4ab},
    {QPalette::Link, 0xff6cb2ff, kFaint},
    {QPalette::LinkVisited, 0xffb794f6, kFaint},
    {QPalette::ToolTipBase, 0xff43454a, 0xff43454a},
    {QPalette::ToolTipText, kText, kText},
};

QPalette DarkPalette() {
    QPalette palette;
    for (const Shade &shade : kDark) {
        palette.setColor(QPalette::Active, shade.role, QColor(shade.colour));
        palette.setColor(QPalette::Inactive, shade.role, QColor(shade.colour));
        palette.setColor(QPalette::Disabled, shade.role, QColor(shade.disabled));
    }
    return palette;
}

bool HasDarkGround(const QPalette &palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

// What the toolkit had before the windows turned dark.
struct LightLook {
    QString style;
    QPalette toolTip;
};
std::optional<LightLook> lightLook;

bool EndsInDark(const std::string &theme) {
    for (const char *ending : {"-dark", ":dark"}) {
        const std::string end = ending;
        if (theme.size() >= end.size() && EqualNoCase(theme.substr(theme.size() - end.size()), end)) return true;
    }
    return false;
}

std::string ReadGtk(const char *key, const std::string &file) {
    char value[260];
    GetPrivateProfileStringA("Settings", key, "", value, sizeof value, file.c_str());
    return value;
}

// Without a socket at one of the two places an attempt to connect would start a bus of its own.
bool HasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

// The portal wraps the value once or twice.
unsigned NumberIn(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

}  // namespace

void SetDesktopDark(bool dark) {
    if (dark == lightLook.has_value()) return;
    if (dark) {
        lightLook = {QApplication::style()->name(), QToolTip::palette()};
        QApplication::setStyle("Fusion");  // other styles draw parts in colours of their own
        const QPalette palette = DarkPalette();
        QApplication::setPalette(palette);
        QToolTip::setPalette(palette);
        return;
    }
    const LightLook before = *lightLook;
    lightLook.reset();
    QApplication::setStyle(before.style);
    QApplication::setPalette(QPalette());  // the platform's own
    QToolTip::setPalette(before.toolTip);
}

bool IsDesktopDark() { return HasDarkGround(QApplication::palette()); }

std::optional<bool> GtkWantsDark(const std::string &themeVariable, const std::string &settingsFile) {
    if (!themeVariable.empty()) return EndsInDark(themeVariable);
    const std::string prefers = ReadGtk("gtk-application-prefer-dark-theme", settingsFile);
    if (prefers == "1" || EqualNoCase(prefers, "true")) return true;
    const std::string theme = ReadGtk("gtk-theme-name", settingsFile);
    if (EndsInDark(theme)) return true;
    return prefers.empty() && theme.empty() ? std::nullopt : std::optional(false);
}

CDesktopTheme::CDesktopTheme() {
    if (HasDarkGround(QApplication::palette())) return;
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    gtkDark_ = GtkWantsDark(FromQString(qEnvironmentVariable("GTK_THEME")),
                            FromNativePath(FromQString(config + "/gtk-3.0/settings.ini")));
    Show(kNoPreference);
    if (HasSessionBus()) AskPortal();
}

void CDesktopTheme::AskPortal() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    qRegisterMetaType<QDBusVariant>("QDBusVariant");  // the slot's type has to be known by name
    bus.connect(kPortal, kPortalPath, kPortalSettings, "SettingChanged", this,
                SLOT(OnSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(kPortal, kPortalPath, kPortalSettings, "Read");
    question << kAppearance << kColourScheme;
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QVariant> reply = *answer;
        if (!reply.isError()) Show(NumberIn(reply.value()));
        answer->deleteLater();
    });
}

void CDesktopTheme::OnSettingChanged(const QString &group, const QString &key, const QDBusVariant &value) {
    if (group == kAppearance && key == kColourScheme) Show(NumberIn(value.variant()));
}

void CDesktopTheme::Show(unsigned colourScheme) {
    SetDesktopDark(colourScheme == kPreferDark || (colourScheme != kPreferLight && gtkDark_.value_or(false)));
}
