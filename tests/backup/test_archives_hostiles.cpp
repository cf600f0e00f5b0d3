// Archives hostiles à la restauration : chemins absolus, remontées par "..", liens
// symboliques, entrée qui se gonfle au-delà de ce qu'elle annonce ou de ce que l'archive
// peut honnêtement contenir. Chacune est refusée, la base en place n'a pas bougé.
#include "BancSauvegarde.h"

#include "backup/Restauration.h"
#include "backup/ZipBiblio.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QtTest>
#include <sys/stat.h>

using namespace banc;

namespace {

// Archive d'une seule entrée de ce nom ; lien vrai : l'entrée est un lien symbolique Unix.
bool ArchiveUneEntree(const QString& chemin, const QString& nom, const QByteArray& contenu,
                      bool lien = false) {
    QFile::remove(chemin);
    int code = 0;
    zip_t* za = zip_open(QFile::encodeName(chemin).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!za) return false;
    zip_source_t* s =
        zip_source_buffer(za, contenu.constData(), static_cast<zip_uint64_t>(contenu.size()), 0);
    const zip_int64_t i = s ? zip_file_add(za, nom.toUtf8().constData(), s, 0) : -1;
    if (i < 0) {
        zip_discard(za);
        return false;
    }
    if (lien &&
        zip_file_set_external_attributes(za, static_cast<zip_uint64_t>(i), 0, ZIP_OPSYS_UNIX,
                                         static_cast<zip_uint32_t>(S_IFLNK | 0777) << 16))
        return false;
    return zip_close(za) == 0;
}

quint32 Lire32(const QByteArray& o, qsizetype i) {
    return quint32(quint8(o[i])) | quint32(quint8(o[i + 1])) << 8 |
           quint32(quint8(o[i + 2])) << 16 | quint32(quint8(o[i + 3])) << 24;
}
void Ecrire32(QByteArray& o, qsizetype i, quint32 v) {
    for (int k = 0; k < 4; ++k)
        o[i + k] = static_cast<char>((v >> (8 * k)) & 0xff);
}

// Une bombe : l'entrée maroval.mdb annonce annonce octets (en-tête local et répertoire
// central) et en donne taille à l'extraction.
QByteArray Bombe(const QString& chemin, qsizetype taille, quint32 annonce) {
    if (!ArchiveUneEntree(chemin, "maroval.mdb", QByteArray(taille, '\0'))) return {};
    QByteArray o = Lire(chemin);
    const qsizetype local = o.indexOf(QByteArray("PK\x03\x04", 4));
    const qsizetype central = o.indexOf(QByteArray("PK\x01\x02", 4));
    if (local < 0 || central < 0 || Lire32(o, local + 22) != quint32(taille)) return {};
    Ecrire32(o, local + 22, annonce);   // taille décompressée de l'en-tête local
    Ecrire32(o, central + 24, annonce); // et du répertoire central
    Ecrire(chemin, o);
    return o;
}

} // namespace

class TestArchivesHostiles : public QObject {
    Q_OBJECT
private slots:
    void init() { ui::ObserverFin(true); }

    void limite_dixFoisLArchiveEntreUnPlancherEtDeuxGio() {
        QCOMPARE(LimiteExtraction(0), quint64(32) << 20);
        QCOMPARE(LimiteExtraction(1000), quint64(32) << 20);
        QCOMPARE(LimiteExtraction(10 << 20), quint64(100) << 20);
        QCOMPARE(LimiteExtraction(qint64(1) << 30), quint64(2) << 30);
    }

    void archiveHostileRefuseeBaseIntacte_data() {
        QTest::addColumn<QString>("genre");
        QTest::addColumn<QString>("raison");
        QTest::newRow("chemin absolu") << "absolu"
                                       << "entrée au chemin absolu : /";
        QTest::newRow("chemin absolu Windows") << "lecteur"
                                               << "entrée au chemin absolu : C:";
        QTest::newRow("remontée par ..") << "remontee"
                                         << "entrée hors de l'archive : ../";
        QTest::newRow("remontée au milieu") << "milieu"
                                            << "entrée hors de l'archive : a/../../";
        QTest::newRow("lien symbolique") << "lien"
                                         << "lien symbolique : maroval.mdb";
        QTest::newRow("entrée annoncée petite") << "menteuse"
                                                << "plus grosse qu'annoncé";
        QTest::newRow("entrée trop grosse pour l'archive") << "bombe"
                                                           << "trop grosse";
    }
    void archiveHostileRefuseeBaseIntacte() {
        QFETCH(QString, genre);
        QFETCH(QString, raison);
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 12);
        const QStringList avant = VidageComplet();
        FermerBase();
        const QByteArray base = Lire(banc.Fichier("maroval.mdb"));
        OuvrirBase(banc.Chemin());
        const QString chemin = banc.Archives() + QStringLiteral("/hostile.sav");
        if (genre == "absolu") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", base}, {"/tmp/maroval.mdb", base}}));
        } else if (genre == "lecteur") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", base}, {"C:\\maroval.mdb", base}}));
        } else if (genre == "remontee") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", base}, {"../maroval.mdb", base}}));
        } else if (genre == "milieu") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", base}, {"a/../../maroval.ini", "x"}}));
        } else if (genre == "lien") {
            QVERIFY(ArchiveUneEntree(chemin, "maroval.mdb", "/etc/passwd", true));
        } else if (genre == "menteuse") {
            QVERIFY(!Bombe(chemin, 20 << 20, 4096).isEmpty());
        } else if (genre == "bombe") {
            QVERIFY(!Bombe(chemin, 40 << 20, 40 << 20).isEmpty());
            QVERIFY(QFileInfo(chemin).size() * 10 < (32 << 20));
        }
        const QStringList fichiers =
            QDir(banc.Chemin()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);

        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!RestaurerArchive(chemin));
        QVERIFY2(MessageZip().contains(raison), qPrintable(MessageZip()));
        QCOMPARE(ui::JournalBoites().last().texte, TexteEchecRestauration());
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Critique);
        QVERIFY(!ui::FinDemandee());
        QVERIFY(BaseOuverte());
        QCOMPARE(VidageComplet(), avant);
        // Rien d'écrit ailleurs : ni dans les données, ni à côté, ni sous /tmp.
        QCOMPARE(
            QDir(banc.Chemin()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
            fichiers);
        QCOMPARE(QDir(banc.Archives()).entryList(QDir::Files), QStringList{"hostile.sav"});
        FermerBase();
        QCOMPARE(Lire(banc.Fichier("maroval.mdb")), base);
    }

    // Une vraie sauvegarde, même très compressible, passe toujours.
    void sauvegardeHonneteAcceptee() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 12);
        const QString archive = ArchiveDeLaBase(banc, QStringLiteral("bonne.sav"));
        QVERIFY(UnZip(archive, QStringLiteral("maroval.mdb"), banc.Archives()));
        QVERIFY(MessageZip().isEmpty());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestArchivesHostiles test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_archives_hostiles.moc"
