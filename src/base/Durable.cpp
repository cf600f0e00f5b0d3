#include "base/Durable.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
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

QString RaisonSysteme(int numero) {
    switch (numero) {
    case ENOSPC:
        return QStringLiteral("le disque est plein");
    case EDQUOT:
        return QStringLiteral("votre quota d'espace disque est atteint");
    case EROFS:
        return QStringLiteral("le disque est en lecture seule");
    case EACCES:
    case EPERM:
        return QStringLiteral("l'accès est refusé");
    case ENOENT:
        return QStringLiteral("le dossier n'existe pas ou n'accepte aucun fichier");
    case ENOTDIR:
        return QStringLiteral("ce chemin n'est pas un dossier");
    case EIO:
        return QStringLiteral("le disque a signalé une erreur de lecture ou d'écriture");
    case ENXIO:
    case ENODEV:
        return QStringLiteral("le disque n'est plus branché");
    default:
        return QString::fromLocal8Bit(std::strerror(numero));
    }
}

QString EssayerEcriture(const QString& dossier) {
    const QByteArray modele = QFile::encodeName(dossier) + "/.maroval-essai-XXXXXX";
    QByteArray nom = modele;
    const int fd = ::mkstemp(nom.data());
    if (fd < 0) return RaisonSysteme(errno);
    // Une page entière, comme la base en écrit : un disque plein refuse ici.
    const QByteArray page(4096, '\0');
    QString raison;
    if (::write(fd, page.constData(), static_cast<size_t>(page.size())) != page.size() ||
        ::fsync(fd) != 0)
        raison = RaisonSysteme(errno);
    ::close(fd);
    ::unlink(nom.constData());
    return raison;
}

bool EcrireFichierEntier(const QString& chemin, const QByteArray& contenu) {
    QSaveFile f(chemin);
    if (!f.open(QIODevice::WriteOnly)) return false;
    if (f.write(contenu) != contenu.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit() && SynchroniserDossier(QFileInfo(chemin).absolutePath());
}
