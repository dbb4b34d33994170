#pragma once

#include "support/FakeApplication.h"
#include "support/FakeClock.h"

#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>
#include <memory>

// The process as the fuzz targets need it, made once: a settings store in memory, boxes
// that go nowhere, English as the language, the message file and the printer tables that
// lie beside the program, a clock that moves only when an input says so, and the print
// application of the tests.
class FuzzEnvironment
{
public:
    static FuzzEnvironment& instance();

    FakeClock& clock() { return *m_clock; }
    FakeApplication& application() { return *m_application; }
    // A folder of this process, ending in a slash, for the files that inputs are written to.
    QString folder() const;
    // The input as the file `name` in that folder; its path.
    QString writeFile(const QString& name, const uint8_t* data, size_t size) const;

private:
    FuzzEnvironment();

    QTemporaryDir m_folder;
    std::shared_ptr<FakeClock> m_clock;
    std::shared_ptr<FakeApplication> m_application;
};
