#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

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
        return run(QStringLiteral(VIGILCTL_PATH), args, input, environment);
    }

    // As if the disk were full beyond `bytes`: no file vigilctl writes grows past it. The
    // signal that such a write raises is ignored, so that the write fails as on a full disk.
    Outcome vigilctlOnAFullDisk(const QStringList& args, int bytes)
    {
        const QString script =
            QStringLiteral("trap '' XFSZ; exec prlimit --fsize=%1 \"$0\" \"$@\"").arg(bytes);
        return run(QStringLiteral("/bin/sh"),
                   QStringList{QStringLiteral("-c"), script, QStringLiteral(VIGILCTL_PATH)} + args);
    }

    // As a user whom file permissions bind, and whom those for others bind when the tests
    // run as root: nobody.
    Outcome vigilctlBoundByPermissions(const QStringList& args)
    {
        if (geteuid() != 0)
            return vigilctl(args);
        return run(QStringLiteral("setpriv"),
                   QStringList{"--reuid=65534", "--regid=65534", "--clear-groups",
                               QStringLiteral(VIGILCTL_PATH)} +
                       args);
    }

    QString storePath() const { return m_dir.filePath(QStringLiteral("store.sqlite")); }

    QTemporaryDir m_dir;

private:
    Outcome run(const QString& program, const QStringList& args, const QByteArray& input = {},
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
        process.start(program, args);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(20000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
};
