// Any bytes as a message file: loaded, every line looked up, and each filled with arguments.

#include "FuzzEnvironment.h"
#include "services/MessageCatalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QString FileName = QStringLiteral("Vigil.msg");
    FuzzEnvironment& environment = FuzzEnvironment::instance();
    environment.writeFile(FileName, data, size);
    MessageCatalogue catalogue;
    catalogue.loadMessageFile(environment.folder(), FileName);
    const QVariantList args = {QStringLiteral("%2"), 10, QStringLiteral("%1%10")};
    for (qint32 id = MessageCatalogue::NoMessage; id <= catalogue.capacity() + 1; ++id) {
        catalogue.getMessage(id, QStringLiteral("default"));
        catalogue.formatMessage(id, args);
    }
    return 0;
}
