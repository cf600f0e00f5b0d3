#include "backup/ZipBiblio.h"

#include "base/Durable.h"

#include "backup/ErreurSauvegarde.h"
#include "session/Session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

namespace {

QString g_message;

QString TexteErreurZip(int code) {
    zip_error_t erreur;
    zip_error_init_with_code(&erreur, code);
    const QString texte = QString::fromUtf8(zip_error_strerror(&erreur));
    zip_error_fini(&erreur);
    return texte;
}

void Noter(const QString& routine, int ligne, const QString& texte) {
    g_message = QStringLiteral(" - Module ZipBiblio - %1 - Ligne %2 : %3")
                    .arg(routine)
                    .arg(ligne)
                    .arg(texte);
}

[[noreturn]] void EchecCompression(int ligne, int code, const QString& detail) {
    Noter(QStringLiteral("Zipper"), ligne, detail);
    throw ErreurSauvegarde(code, QStringLiteral("Erreur pendant la compression."),
                           QStringLiteral("Zipper()"));
}

// Archive ouverte, refermée sans rien écrire si on la quitte en chemin.
struct Archive {
    zip_t* za = nullptr;
    ~Archive() {
        if (za) zip_discard(za);
    }
};

// Ce qui rend une entrée dangereuse à extraire, vide sinon. On n'extrait qu'une entrée, sous
// un nom choisi par nous, mais une archive qui en porte de telles n'est pas une sauvegarde
// de Maroval : elle est refusée tout entière.
QString EntreeHostile(zip_t* za, zip_uint64_t index) {
    const char* brut = zip_get_name(za, index, ZIP_FL_ENC_RAW);
    const QString nom = brut ? QString::fromUtf8(brut) : QString();
    if (nom.isEmpty()) return QStringLiteral("entrée sans nom");
    if (nom.startsWith(u'/') || nom.startsWith(u'\\') || (nom.size() >= 2 && nom.at(1) == u':'))
        return QStringLiteral("entrée au chemin absolu : ") + nom;
    for (const QString& partie : nom.split(QRegularExpression(QStringLiteral("[/\\\\]"))))
        if (partie == QLatin1String(".."))
            return QStringLiteral("entrée hors de l'archive : ") + nom;
    zip_uint8_t systeme = 0;
    zip_uint32_t attributs = 0;
    if (zip_file_get_external_attributes(za, index, 0, &systeme, &attributs) == 0 &&
        systeme == ZIP_OPSYS_UNIX && ((attributs >> 16) & S_IFMT) == S_IFLNK)
        return QStringLiteral("lien symbolique : ") + nom;
    return QString();
}

} // namespace

quint64 LimiteExtraction(qint64 tailleArchive) {
    const quint64 plafond = quint64(2) << 30;
    const quint64 plancher = quint64(32) << 20;
    return std::min(plafond, std::max(plancher, quint64(std::max<qint64>(tailleArchive, 0)) * 10));
}

QString MessageZip() {
    return g_message;
}

void Zipper(const QString& Dossier, const QString& NomFichier, const QString& Archive) {
    const QString source = QDir(Dossier).filePath(NomFichier);
    // Le fichier manquant est signalé ici : libzip ne le verrait qu'à la fermeture.
    if (!QFileInfo(source).isFile())
        EchecCompression(10, ZIP_ER_OPEN, QStringLiteral("fichier absent : ") + source);
    int code = 0;
    ::Archive a;
    a.za = zip_open(QFile::encodeName(Archive).constData(), ZIP_CREATE, &code);
    if (!a.za) EchecCompression(20, code, TexteErreurZip(code));
    zip_source_t* src = zip_source_file(a.za, QFile::encodeName(source).constData(), 0, 0);
    if (!src) EchecCompression(30, zip_error_code_zip(zip_get_error(a.za)), zip_strerror(a.za));
    // Seul le nom du fichier entre dans l'archive, jamais son dossier.
    const QByteArray nom = QFileInfo(NomFichier).fileName().toUtf8();
    const zip_int64_t index =
        zip_file_add(a.za, nom.constData(), src, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(src);
        EchecCompression(40, zip_error_code_zip(zip_get_error(a.za)), zip_strerror(a.za));
    }
    if (zip_set_file_compression(a.za, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 9) != 0)
        EchecCompression(50, zip_error_code_zip(zip_get_error(a.za)), zip_strerror(a.za));
    // libzip écrit un fichier temporaire à côté et le renomme : l'ancienne archive reste
    // entière tant que la nouvelle n'est pas complète.
    if (zip_close(a.za) != 0)
        EchecCompression(60, zip_error_code_zip(zip_get_error(a.za)), zip_strerror(a.za));
    a.za = nullptr;
    SynchroniserDossier(QFileInfo(Archive).absolutePath());
}

bool UnZip(const QString& Archive, const QString& NomFichier, const QString& Destination) {
    const QString routine = QStringLiteral("UnZip");
    const QString dossier =
        Destination == QStringLiteral(".") ? session().DossierDonnees : Destination;
    int code = 0;
    ::Archive a;
    a.za = zip_open(QFile::encodeName(Archive).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &code);
    if (!a.za) {
        Noter(routine, 10, TexteErreurZip(code));
        return false;
    }
    const zip_int64_t nombre = zip_get_num_entries(a.za, 0);
    for (zip_int64_t i = 0; i < nombre; ++i) {
        const QString hostile = EntreeHostile(a.za, static_cast<zip_uint64_t>(i));
        if (!hostile.isEmpty()) {
            Noter(routine, 15, hostile);
            return false;
        }
    }
    const zip_int64_t index = zip_name_locate(a.za, NomFichier.toUtf8().constData(), ZIP_FL_NOCASE);
    zip_stat_t st;
    if (index < 0 || zip_stat_index(a.za, static_cast<zip_uint64_t>(index), 0, &st) != 0 ||
        !(st.valid & ZIP_STAT_SIZE)) {
        Noter(routine, 20, QStringLiteral("entrée absente : ") + NomFichier);
        return false;
    }
    // Une entrée annoncée petite peut se gonfler à l'extraction : on compte ce qui sort.
    const quint64 limite = std::min<quint64>(st.size, LimiteExtraction(QFileInfo(Archive).size()));
    if (st.size > LimiteExtraction(QFileInfo(Archive).size())) {
        Noter(routine, 25, QStringLiteral("entrée trop grosse pour l'archive : ") + NomFichier);
        return false;
    }
    zip_file_t* entree = zip_fopen_index(a.za, static_cast<zip_uint64_t>(index), 0);
    if (!entree) {
        Noter(routine, 30, zip_strerror(a.za));
        return false;
    }
    QSaveFile cible(QDir(dossier).filePath(QFileInfo(NomFichier).fileName()));
    bool ok = cible.open(QIODevice::WriteOnly);
    zip_uint64_t total = 0;
    QByteArray tampon(1 << 16, Qt::Uninitialized);
    while (ok) {
        const zip_int64_t lus =
            zip_fread(entree, tampon.data(), static_cast<zip_uint64_t>(tampon.size()));
        // Une lecture en erreur (données tronquées, somme de contrôle fausse) arrête tout.
        if (lus < 0) {
            Noter(routine, 40, QString::fromUtf8(zip_file_strerror(entree)));
            ok = false;
        } else if (lus == 0) {
            break;
        } else if (total + static_cast<zip_uint64_t>(lus) > limite) {
            Noter(routine, 45, QStringLiteral("entrée plus grosse qu'annoncé : ") + NomFichier);
            ok = false;
        } else {
            total += static_cast<zip_uint64_t>(lus);
            ok = cible.write(tampon.constData(), lus) == lus;
            if (!ok) Noter(routine, 50, cible.errorString());
        }
    }
    zip_fclose(entree);
    if (ok && total != st.size) {
        Noter(routine, 60, QStringLiteral("taille extraite différente de celle de l'archive"));
        ok = false;
    }
    if (!ok) {
        cible.cancelWriting();
        return false;
    }
    if (!cible.commit()) {
        Noter(routine, 70, cible.errorString());
        return false;
    }
    SynchroniserDossier(dossier);
    g_message.clear();
    return true;
}

bool UnZipUnFichier(const QString& Archive, const QString& NomFichier) {
    return UnZip(Archive, NomFichier, QStringLiteral("."));
}
