// Forme des archives .sav et extraction d'une entrée : ZIP ordinaire lisible par unzip,
// deux entrées à la racine, niveau 9 ; l'archive lue n'est jamais modifiée.
#include "BancSauvegarde.h"
#include "backup/ErreurSauvegarde.h"
#include "backup/ZipBiblio.h"
#include "ui/Application.h"

#include <QProcess>
#include <QtTest>

using namespace banc;

namespace {

QString Commande(const QString& programme, const QStringList& arguments, int* code = nullptr) {
    QProcess p;
    p.start(programme, arguments);
    p.waitForFinished(10000);
    if (code) *code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    return QString::fromUtf8(p.readAllStandardOutput());
}

} // namespace

class TestArchiveZip : public QObject {
    Q_OBJECT
private slots:
    void deuxEntreesALaRacineNiveauNeufLisiblesParUnzip() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 40);
        FermerBase();
        const QString archive = banc.Archives() + QStringLiteral("/essai.sav");
        Zipper(banc.Chemin(), QStringLiteral("maroval.mdb"), archive);
        Zipper(banc.Chemin(), QStringLiteral("maroval.ini"), archive);

        int code = -1;
        const QString liste = Commande(QStringLiteral("unzip"), {"-Z1", archive}, &code);
        QCOMPARE(code, 0);
        QCOMPARE(liste.split('\n', Qt::SkipEmptyParts),
                 QStringList({"maroval.mdb", "maroval.ini"}));
        const QString l = Commande(QStringLiteral("unzip"), {"-l", archive}, &code);
        QCOMPARE(code, 0);
        QVERIFY2(l.contains(QStringLiteral("2 files")), qPrintable(l));
        // Contrôle des sommes de toutes les entrées.
        Commande(QStringLiteral("unzip"), {"-tq", archive}, &code);
        QCOMPARE(code, 0);
        // Compression "maximum" : niveau 9 de deflate, sans chiffrement, sans commentaire.
        const QString details = Commande(QStringLiteral("zipinfo"), {"-v", archive}, &code);
        QCOMPARE(code, 0);
        QCOMPARE(details.count(QStringLiteral("compression method:")), 2);
        QCOMPARE(details.count(QStringLiteral("deflated")), 2);
        QCOMPARE(details.count(
                     QRegularExpression(QStringLiteral("sub-type \\(deflation\\):\\s+maximum"))),
                 2);
        QCOMPARE(details.count(QStringLiteral(
                     "file security status:                           not encrypted")),
                 2);
        QVERIFY2(details.contains(QStringLiteral("There is no zipfile comment.")),
                 qPrintable(details));

        // Le contenu extrait par unzip est celui des fichiers du dossier.
        QProcess p;
        p.start(QStringLiteral("unzip"), {"-p", archive, "maroval.ini"});
        p.waitForFinished(10000);
        QCOMPARE(p.readAllStandardOutput(), Lire(banc.Fichier("maroval.ini")));
    }

    void leDeuxiemeAppelAjouteAMemeArchiveEtRemplaceUneEntreeDeMemeNom() {
        Banc banc;
        FermerBase();
        const QString archive = banc.Archives() + QStringLiteral("/ajout.sav");
        Zipper(banc.Chemin(), QStringLiteral("maroval.ini"), archive);
        Ecrire(banc.Fichier("maroval.ini"), "[Securite]\nErreur=0\n");
        Zipper(banc.Chemin(), QStringLiteral("maroval.ini"), archive);
        Zipper(banc.Chemin(), QStringLiteral("maroval.mdb"), archive);
        int code = -1;
        QCOMPARE(Commande(QStringLiteral("unzip"), {"-Z1", archive}, &code)
                     .split('\n', Qt::SkipEmptyParts),
                 QStringList({"maroval.ini", "maroval.mdb"}));
        const QString sortie = banc.Archives() + QStringLiteral("/sortie");
        QDir().mkpath(sortie);
        QVERIFY(UnZip(archive, QStringLiteral("maroval.ini"), sortie));
        QCOMPARE(Lire(sortie + QStringLiteral("/maroval.ini")),
                 QByteArray("[Securite]\nErreur=0\n"));
    }

    void fichierAbsentLeveErreurDeCompressionEtNeCreeRien() {
        Banc banc;
        const QString archive = banc.Archives() + QStringLiteral("/rien.sav");
        bool levee = false;
        try {
            Zipper(banc.Chemin(), QStringLiteral("absent.mdb"), archive);
        } catch (const ErreurSauvegarde& e) {
            levee = true;
            QCOMPARE(e.Description(), QStringLiteral("Erreur pendant la compression."));
            QCOMPARE(e.Source(), QStringLiteral("Zipper()"));
            QVERIFY(e.Numero() != 0);
        }
        QVERIFY(levee);
        QVERIFY(!QFile::exists(archive));
        QVERIFY(MessageZip().startsWith(QStringLiteral(" - Module ZipBiblio - Zipper - Ligne ")));
    }

    void dossierDeLArchiveInaccessibleLeveErreurDeCompression() {
        Banc banc;
        FermerBase();
        // Un fichier ordinaire à la place du dossier : inaccessible même pour root.
        const QString bouchon = banc.Archives() + QStringLiteral("/pas-un-dossier");
        Ecrire(bouchon, "x");
        QVERIFY_THROWS_EXCEPTION(ErreurSauvegarde,
                                 Zipper(banc.Chemin(), QStringLiteral("maroval.mdb"),
                                        bouchon + QStringLiteral("/x.sav")));
    }

    void unZipPointVeutDireLeDossierDesDonneesEtLaCasseEstIgnoree() {
        Banc banc;
        FermerBase();
        const QString archive = banc.Archives() + QStringLiteral("/casse.sav");
        QVERIFY(FabriquerZip(archive, {{QStringLiteral("MAROVAL.INI"), "[Options]\nSymbEu=F\n"}}));
        const QByteArray avant = Empreinte(archive);
        QVERIFY(UnZipUnFichier(archive, QStringLiteral("maroval.ini")));
        QCOMPARE(Lire(banc.Fichier("maroval.ini")), QByteArray("[Options]\nSymbEu=F\n"));
        QCOMPARE(Empreinte(archive), avant);
    }

    void entreeAbsenteArchiveTronqueeOuPasUnZipRendentFauxSansToucherLaCible() {
        Banc banc;
        FermerBase();
        const QByteArray ini = Lire(banc.Fichier("maroval.ini"));
        const QString sansIni = banc.Archives() + QStringLiteral("/sans.sav");
        QVERIFY(FabriquerZip(sansIni, {{QStringLiteral("autre.txt"), "bonjour"}}));
        QVERIFY(!UnZipUnFichier(sansIni, QStringLiteral("maroval.ini")));

        // Tronquée : l'entrée compressée est coupée en son milieu.
        const QString complete = banc.Archives() + QStringLiteral("/complete.sav");
        QByteArray gros;
        for (int i = 0; i < 20000; ++i)
            gros += QByteArray::number(i * 7919) + ';';
        QVERIFY(FabriquerZip(complete, {{QStringLiteral("maroval.ini"), gros}}));
        const QByteArray octets = Lire(complete);
        const QString tronquee = banc.Archives() + QStringLiteral("/tronquee.sav");
        Ecrire(tronquee, octets.left(octets.size() / 2));
        QVERIFY(!UnZipUnFichier(tronquee, QStringLiteral("maroval.ini")));

        // Données abîmées au milieu de l'entrée, répertoire central intact.
        QByteArray abimee = octets;
        for (int i = 200; i < 260; ++i)
            abimee[i] = static_cast<char>(abimee[i] ^ 0x5a);
        const QString fausse = banc.Archives() + QStringLiteral("/abimee.sav");
        Ecrire(fausse, abimee);
        QVERIFY(!UnZipUnFichier(fausse, QStringLiteral("maroval.ini")));

        const QString texte = banc.Archives() + QStringLiteral("/texte.sav");
        Ecrire(texte, "Ceci n'est pas une archive.\n");
        QVERIFY(!UnZipUnFichier(texte, QStringLiteral("maroval.ini")));
        QVERIFY(!UnZipUnFichier(banc.Archives() + QStringLiteral("/absente.sav"),
                                QStringLiteral("maroval.ini")));

        QCOMPARE(Lire(banc.Fichier("maroval.ini")), ini);
        QCOMPARE(Lire(tronquee), octets.left(octets.size() / 2));
        QCOMPARE(QDir(banc.Chemin()).entryList(QDir::Files | QDir::Hidden),
                 QStringList({"maroval.ini", "maroval.mdb"}));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestArchiveZip test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_archive_zip.moc"
