#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// vigilctl run as a real process, on a store of its own, in English.
struct Outcome
{
    int code = -1;
    QString out;
    QString err;
};

class VigilctlFixture : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_dir.isValid()); }

    Outcome vigilctl(const QStringList& args, const QByteArray& input = {},
                     const QStringList& environment = {})
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("VIGIL_STORE"), storePath());
        env.insert(QStringLiteral("VIGIL_HOME"), QStringLiteral(VIGIL_BIN_DIR));
        for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"})
            env.remove(QLatin1String(variable));
        env.insert(QStringLiteral("LANG"), QStringLiteral("en_US.UTF-8"));
        for (const QString& setting : environment)
            env.insert(setting.section(QLatin1Char('='), 0, 0),
                       setting.section(QLatin1Char('='), 1));
        process.setProcessEnvironment(env);
        process.start(QStringLiteral(VIGILCTL_PATH), args);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(20000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QString storePath() const { return m_dir.filePath(QStringLiteral("store.sqlite")); }

    QTemporaryDir m_dir;
};
