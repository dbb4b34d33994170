#pragma once

#include <QString>

// The control's few global settings, the names of the files that follow from them, and the
// brand words that the message texts are rewritten with. The options are one set per
// machine, under the machine hive.
class ApplicationOptions
{
public:
    static constexpr qint32 DefaultPollInterval = 20000;
    static constexpr qint32 MinPollInterval = 4000;
    static constexpr qint32 MaxPollInterval = 65000000;

    void loadOptions();
    qint32 getPollInterval();
    // Clamps the value to the allowed range and keeps it; saved by saveOptions.
    qint32 setPollIntervalOption(qint32 value);
    void saveOptions();
    qint16 getPrintsRemainingInkLowLimit();
    QString getMessageFolder();
    QString applyBranding(const QString& text);

    static ApplicationOptions& process();

private:
    void loadBranding();

    bool m_bLoaded = false;
    QString m_sMessageFolder;
    qint32 m_lPollInterval = DefaultPollInterval;
    qint32 m_lTreeIconSize = 0;
    qint16 m_nPrintsRemainingInkLowLimit = -1;
    QString m_sBrandProductName;
    QString m_sBrandWord;
    QString m_sBrandCompany;
};

inline const QString OptionsKey = QStringLiteral("Software\\Orvane\\Vigil\\Options\\");
// Read, never written by the program: an administrator sets it.
inline const QString InkLowLimitValue = QStringLiteral("PrintsRemainingInkLowLimit");

// The options of this process.
void LoadOptions();
qint32 GetPollInterval();
qint32 SetPollIntervalOption(qint32 value);
void SaveOptions();
qint16 GetPrintsRemainingInkLowLimit();
QString GetMessageFolder();
QString ApplyBranding(const QString& text);

QString GetMessageFileName();
QString GetHelpFileName();
QString GetIconsFolderName();

// The folder of the program's files: $VIGIL_HOME, else the executable's folder.
QString GetProgramFolder();
