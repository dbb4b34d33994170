#pragma once

#include <QLabel>
#include <QUrl>

// The settings tab's view of the printer's own web page. Without an embedded browser it
// shows a link that opens the page in the desktop's browser; "navigating" sets the link.
class SettingsWebLink : public QLabel
{
    Q_OBJECT

public:
    explicit SettingsWebLink(QWidget* parent = nullptr);

    // Where the view was sent, as it was given ("http:\\10.1.2.3"); empty until then.
    const QString& location() const { return m_location; }
    // Nothing has been loaded yet: no location, or the empty web address.
    bool isBlank() const;
    void navigate(const QString& location);
    // The address the link opens; invalid when the location names no host.
    QUrl url() const;

private:
    QString m_location;
};
