// The light or dark look of the program's windows, as the desktop has it.
#pragma once

#include <QObject>
#include <optional>
#include <string>

class QDBusVariant;

// Makes all windows dark or light: the palette, icons and whatever asks the palette for its colours. They follow when
// events are processed next. Light is what the toolkit gave at first. Main thread.
void SetDesktopDark(bool dark);
bool IsDesktopDark();

// Whether the desktop's settings for GTK programs ask for dark windows. `themeVariable`: the value of GTK_THEME, empty
// when it isn't set; it wins. `settingsFile`: a "settings.ini" in the Windows form, which may be missing. Empty when
// neither says anything.
std::optional<bool> GtkWantsDark(const std::string &themeVariable, const std::string &settingsFile);

// Follows the desktop while it exists: the settings portal, then the settings for GTK programs. A platform whose own
// palette is dark is left to itself. The constructor needs a QApplication; it asks the portal and doesn't wait.
class CDesktopTheme : public QObject {
    Q_OBJECT

public:
    CDesktopTheme();

private slots:
    void OnSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void AskPortal();
    void Show(unsigned colourScheme);

    std::optional<bool> gtkDark_;
};
