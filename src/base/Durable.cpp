#include "base/Durable.h"

#include <QFile>
#include <fcntl.h>
#include <unistd.h>

bool SynchroniserDossier(const QString& dossier) {
    const int fd =
        ::open(QFile::encodeName(dossier).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}
