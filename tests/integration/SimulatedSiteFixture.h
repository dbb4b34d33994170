#pragma once

#include "integration/VigilctlFixture.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>

// Printers simulated by vigil-sim over loopback, each with a queue of its type in vigilctl's
// store, polled at the shortest interval.
class SimulatedSiteFixture : public VigilctlFixture
{
protected:
    void TearDown() override
    {
        m_simulator.terminate();
        m_simulator.waitForFinished(5000);
    }

    struct Printer
    {
        QString kind;
        int type;
        QString knobs;
    };

    // Serves the printers, by name, and adds a queue of its type for each.
    void serve(const QMap<QString, Printer>& printers)
    {
        QByteArray scenario = "{\"printers\": [";
        for (auto it = printers.begin(); it != printers.end(); ++it)
            scenario += QStringLiteral(R"(%1{"name": "%2", "kind": "%3", "listen": )"
                                       R"("127.0.0.1:0", "knobs": {%4}})")
                            .arg(it == printers.begin() ? "" : ",", it.key(), it->kind, it->knobs)
                            .toUtf8();
        QFile file(m_dir.filePath("site.json"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(scenario + "]}");
        file.close();
        m_simulator.start(QStringLiteral(VIGIL_SIM_PATH), {file.fileName()});
        static const QRegularExpression serving(QStringLiteral("^serving \\S+ \"(.*)\" at (.+)$"));
        int served = 0;
        while (served < printers.size() && m_simulator.waitForReadyRead(5000)) {
            while (m_simulator.canReadLine()) {
                const auto match =
                    serving.match(QString::fromUtf8(m_simulator.readLine()).trimmed());
                ASSERT_TRUE(match.hasMatch());
                const QString name = match.captured(1);
                const QString type = QString::number(printers.value(name).type);
                ASSERT_EQ(
                    vigilctl({"queue", "add", name, "--port", match.captured(2), "--type", type})
                        .code,
                    0);
                ++served;
            }
        }
        ASSERT_EQ(served, printers.size()) << m_simulator.readAllStandardError().toStdString();
        vigilctl({"store", "set", "HKLM/Software/Orvane/Vigil/Options", "PollInterval", "4000",
                  "--dword"});
    }

    QProcess m_simulator;
};
