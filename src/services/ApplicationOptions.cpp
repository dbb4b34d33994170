#include "services/ApplicationOptions.h"

#include "services/MessageCatalogue.h"
#include "services/SettingsAccess.h"
#include "services/TextUtilities.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <limits>

namespace {
// The ink limit when none is set: the coder's own warning stands.
constexpr qint16 NoInkLowLimit = -1;
const QString PollIntervalValue = QStringLiteral("PollInterval");
const QString TreeIconSizeValue = QStringLiteral("TreeIconSize");

const QString BrandingSection = QStringLiteral("Branding");
const QString BrandingRoots[] = {QStringLiteral("SOFTWARE\\Orvane\\Common"),
                                 QStringLiteral("SOFTWARE\\Trellan\\Common")};

const QString ProductWord = QStringLiteral("Korvex Vigil");
const QString BrandWord = QStringLiteral("Korvex");
const QString CompanyWord = QStringLiteral("Company");
const QString BuiltInCompany = QStringLiteral("Orvane Ltd");

qint32 readOption(const QString& name, qint32 defaultValue)
{
    QVariant value;
    TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferRead, REG_DWORD, name, value,
                    defaultValue, false);
    return value.toInt();
}

void writeOption(const QString& name, qint32 number)
{
    QVariant value = number;
    TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferWrite, REG_DWORD, name, value, value,
                    false);
}

// A brand word from the first shared key that holds it, else the built-in word.
QString brandWord(const QString& valueName, const QString& builtIn)
{
    QVariant text = QString();
    for (const QString& root : BrandingRoots) {
        TransferValue(TransferRead, false, BrandingSection, valueName, REG_SZ, QString(), text,
                      false, root);
        if (!text.toString().isEmpty())
            return text.toString();
    }
    return builtIn;
}
} // namespace

ApplicationOptions& ApplicationOptions::process()
{
    static ApplicationOptions options;
    return options;
}

void ApplicationOptions::loadOptions()
{
    m_bLoaded = false;
    const QString languageFolder = GetLanguageFolder();
    m_sMessageFolder = GetSafePath(GetSafePath(GetProgramFolder()) + languageFolder);
    m_lTreeIconSize = readOption(TreeIconSizeValue, m_lTreeIconSize);
    setPollIntervalOption(readOption(PollIntervalValue, DefaultPollInterval));
    // A limit a 16-bit count can't hold is no limit: wrapped, it would read as another one.
    const qint32 inkLowLimit = readOption(InkLowLimitValue, NoInkLowLimit);
    m_nPrintsRemainingInkLowLimit =
        inkLowLimit >= std::numeric_limits<qint16>::min() &&
                inkLowLimit <= std::numeric_limits<qint16>::max()
            ? qint16(inkLowLimit)
            : NoInkLowLimit;
    m_bLoaded = true;
}

qint32 ApplicationOptions::getPollInterval()
{
    if (!m_bLoaded)
        loadOptions();
    return m_lPollInterval;
}

qint32 ApplicationOptions::setPollIntervalOption(qint32 value)
{
    m_lPollInterval = qBound(MinPollInterval, value, MaxPollInterval);
    return m_lPollInterval;
}

void ApplicationOptions::saveOptions()
{
    writeOption(TreeIconSizeValue, m_lTreeIconSize);
    writeOption(PollIntervalValue, getPollInterval());
    // The next accessor reads everything anew, the language folder included.
    m_bLoaded = false;
}

qint16 ApplicationOptions::getPrintsRemainingInkLowLimit()
{
    if (!m_bLoaded)
        loadOptions();
    return m_nPrintsRemainingInkLowLimit;
}

QString ApplicationOptions::getMessageFolder()
{
    if (!m_bLoaded)
        loadOptions();
    return m_sMessageFolder;
}

void ApplicationOptions::loadBranding()
{
    if (!m_sBrandProductName.isEmpty())
        return;
    m_sBrandProductName = brandWord(ProductWord, ProductWord);
    m_sBrandWord = brandWord(BrandWord, BrandWord);
    m_sBrandCompany = brandWord(CompanyWord, BuiltInCompany);
}

QString ApplicationOptions::applyBranding(const QString& text)
{
    loadBranding();
    QString branded = text;
    branded.replace(ProductWord, m_sBrandProductName);
    branded.replace(BrandWord + QLatin1Char(' '), m_sBrandWord + QLatin1Char(' '));
    branded.replace(CompanyWord, m_sBrandCompany);
    return branded;
}

void LoadOptions()
{
    ApplicationOptions::process().loadOptions();
}

qint32 GetPollInterval()
{
    return ApplicationOptions::process().getPollInterval();
}

qint32 SetPollIntervalOption(qint32 value)
{
    return ApplicationOptions::process().setPollIntervalOption(value);
}

void SaveOptions()
{
    ApplicationOptions::process().saveOptions();
}

qint16 GetPrintsRemainingInkLowLimit()
{
    return ApplicationOptions::process().getPrintsRemainingInkLowLimit();
}

QString GetMessageFolder()
{
    return ApplicationOptions::process().getMessageFolder();
}

QString ApplyBranding(const QString& text)
{
    return ApplicationOptions::process().applyBranding(text);
}

QString GetMessageFileName()
{
    return QStringLiteral("Vigil.msg");
}

QString GetHelpFileName()
{
    // Our help is a page of HTML, one per language beside the messages.
    return QStringLiteral("Vigil.html");
}

QString GetIconsFolderName()
{
    return QStringLiteral("Icons");
}

QString GetProgramFolder()
{
    const QString home = qEnvironmentVariable("VIGIL_HOME");
    if (!home.isEmpty())
        return home;
    if (QCoreApplication::instance())
        return QCoreApplication::applicationDirPath();
    return QFileInfo(QStringLiteral("/proc/self/exe"))
        .canonicalFilePath()
        .section(QLatin1Char('/'), 0, -2);
}
