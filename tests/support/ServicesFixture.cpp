#include "support/ServicesFixture.h"

#include "services/ApplicationOptions.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

void ServicesFixture::SetUp()
{
    ASSERT_TRUE(m_home.isValid());
    qputenv("VIGIL_HOME", QFile::encodeName(m_home.path()));
    for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"})
        qunsetenv(variable);
    qputenv("LANG", "en_GB.UTF-8");

    m_store = std::make_shared<SettingsStore>(m_home.filePath(QStringLiteral("store.sqlite")));
    ASSERT_TRUE(m_store->isAvailable()) << m_store->problem().toStdString();
    SettingsStore::install(m_store);
    m_dialogs = std::make_shared<RecordingDialogs>();
    IDialogs::install(m_dialogs);
    ApplicationOptions::process() = ApplicationOptions();
    MessageCatalogue::process() = MessageCatalogue();
}

void ServicesFixture::TearDown()
{
    SettingsStore::install(nullptr);
    IDialogs::install(nullptr);
    ApplicationOptions::process() = ApplicationOptions();
    MessageCatalogue::process() = MessageCatalogue();
    qunsetenv("VIGIL_HOME");
}

void ServicesFixture::writeMessageFile(const QString& code, const QByteArray& text) const
{
    writeFile(QStringLiteral("MSG%1/Vigil.msg").arg(code), text);
}

void ServicesFixture::writeCatalogue(int size, const QMap<int, QByteArray>& messages,
                                     const QByteArray& numbered) const
{
    QByteArray catalogue;
    for (int line = 1; line <= size; ++line)
        catalogue +=
            messages.value(line, numbered.isEmpty() ? QByteArray()
                                                    : numbered + QByteArray::number(line)) +
            '\n';
    writeMessageFile(QStringLiteral("en"), catalogue);
}

QVariant ServicesFixture::storedValue(const QString& key, const QString& name)
{
    QVariant value;
    return ReadValue(HKEY_LOCAL_MACHINE, key, name, value) == 0 ? value : QVariant();
}

void ServicesFixture::writeFile(const QString& relativePath, const QByteArray& bytes) const
{
    const QString path = m_home.filePath(relativePath);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).absolutePath()));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}
