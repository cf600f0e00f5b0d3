#include "base/Durable.h"

#include <QFile>
#include <cerrno>
#include <cstdlib>
#include <cstring>
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

QString EssayerEcriture(const QString& dossier) {
    const QByteArray modele = QFile::encodeName(dossier) + "/.maroval-essai-XXXXXX";
    QByteArray nom = modele;
    const int fd = ::mkstemp(nom.data());
    if (fd < 0) return QString::fromLocal8Bit(std::strerror(errno));
    // Une page entière, comme la base en écrit : un disque plein refuse ici.
    const QByteArray page(4096, '\0');
    QString raison;
    if (::write(fd, page.constData(), static_cast<size_t>(page.size())) != page.size() ||
        ::fsync(fd) != 0)
        raison = QString::fromLocal8Bit(std::strerror(errno));
    ::close(fd);
    ::unlink(nom.constData());
    return raison;
}
