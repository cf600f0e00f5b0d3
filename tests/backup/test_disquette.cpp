// Sauvegarde sur disquette et restauration, par les écrans Sauve et Restaure, la disquette
// étant un dossier : rotation des trois disquettes, étiquette, compression par sauveg.sh dans
// un autre processus (et son délai), puis un aller-retour d'un exercice vers une base vide
// dont les sept tables reviennent identiques ; chaque refus avec sa boîte.
#include "support/BancPannes.h"
#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "backup/Disquette.h"
#include "backup/Restaure.h"
#include "backup/Sauve.h"
#include "base/Szdd.h"
#include "posting/Verification.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui/Horloge.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

using essai::Cle;
using ui::Reponse;

namespace {

const QString Attendue = QStringLiteral(
    "Insérez une disquette portant le numéro %1 dans le lecteur A:\n\net cliquez sur Oui quand "
    "vous êtes prêt.");
const QString Reussie = QStringLiteral("La sauvegarde s'est effectuée correctement.");

// Les lignes des sept tables de l'exercice, en texte, pour comparer deux bases.
QString Exercice(SQLite::Database& db) {
    QString t;
    for (const char* sql :
         {"SELECT * FROM Societe WHERE NumSoc = 1",
          "SELECT * FROM Budget WHERE CleCpt = '012024' ORDER BY NumBud",
          "SELECT * FROM Compte WHERE CleCpt = '012024' ORDER BY NumCpt",
          "SELECT * FROM Constante WHERE CleCon = '012024'",
          "SELECT * FROM Ecriture WHERE CleCpt = '012024' ORDER BY NumEcr",
          "SELECT * FROM Section WHERE CleCpt = '012024' ORDER BY NumSection",
          "SELECT * FROM Ventilation WHERE CleCpt = '012024' ORDER BY NumVentil"}) {
        SQLite::Statement q(db, sql);
        int lignes = 0;
        while (q.executeStep()) {
            ++lignes;
            for (int c = 0; c < q.getColumnCount(); ++c)
                t += QString::fromUtf8(q.getColumn(c).getText()) + QLatin1Char('|');
            t += QLatin1Char('\n');
        }
        t += QStringLiteral("-- %1 lignes\n").arg(lignes);
    }
    return t;
}

} // namespace

class TestDisquette : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    QString cle;

    void Livres(const QString& chemin) {
        essai::NouvelleSession(chemin);
        essai::OuvrirLivres(chemin);
        cle = QDir(chemin).filePath("cle-usb");
        QDir().mkpath(cle);
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Options", "Disquette", cle));
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Plans Types", "PlanChoisi1", "0003"));
    }

    // Une sauvegarde complète par l'écran, réponses données d'avance.
    void Sauvegarder(ecran::Sauve& e) {
        ui::RepondreBoite(Reponse::Oui);
        if (!disquette::FichiersDisquette().isEmpty()) ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(e.findChild<QPushButton*>("SSCommand1"), Qt::LeftButton);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        Livres(dossier->Chemin());
        essai::SoldeOuverture("512", essai::Euros(1000));
        essai::SoldeOuverture("101", essai::Euros(1000));
        essai::Ecriture("05/02/2024", "V",
                        {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
        essai::Ecriture("20/03/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
        essai::Executer("INSERT INTO Section (CleCpt, NumSection, NomSection) VALUES ('012024', 1, "
                        "'Boutique')");
        essai::Executer(
            "INSERT INTO Ventilation (CleCpt, NumVentil, Ventil01) VALUES ('012024', 3, "
            "1000000)");
        ui::FixerHorloge(QDateTime(QDate(2024, 4, 2), QTime(18, 30, 15)));
        ui::ViderJournalBoites();
        ecran::Sauve::FixerDelaiCompression(30000);
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        FermerBase();
        dossier.reset();
    }

    void aucuneSauvegarde_disquette1() {
        ecran::Sauve e;
        QCOMPARE(e.findChild<QLabel*>("Label7")->text(), QStringLiteral("Aucune"));
        QCOMPARE(e.DisqueAttendu(), 1);
        QVERIFY(e.findChild<QLabel*>("Label3")->text().startsWith("La disquette numéro 1"));
    }

    // Après les trois disquettes, la plus anciennement servie revient.
    void rotation_laPlusAncienne() {
        QCOMPARE(disquette::DisqueSuivant({{"20240110120000", 1, 5}}), 2);
        QCOMPARE(disquette::DisqueSuivant({{"20240110120000", 1, 5}, {"20240111120000", 2, 6}}), 3);
        essai::Executer("INSERT INTO Sauve (Date, Societe, Exercice, LastNumEcrit, NumDisk) VALUES "
                        "('20240301100000', 1, 2024, 9, 1), ('20240201100000', 1, 2024, 7, 2), "
                        "('20240315100000', 1, 2024, 11, 3)");
        ecran::Sauve e;
        QCOMPARE(e.DisqueAttendu(), 2);
        QCOMPARE(e.findChild<QLabel*>("Label7")->text(), QStringLiteral("15/03/2024 10:00:00"));
        QCOMPARE(e.findChild<ui::Grille*>("Tree1")->NombreLignes(), 3);
    }

    void sauvegarde_etiquetteCompressionEtTable() {
        ecran::Sauve e;
        e.show();
        Sauvegarder(e);
        QCOMPARE(essai::TextesBoites(), (QStringList{Attendue.arg(1), Reussie}));
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("SAUVEGARDE"));
        const disquette::Etiquette et = disquette::LireEtiquetteDisquette();
        QCOMPARE(et.societe, QStringLiteral("1"));
        QCOMPARE(et.exercice, QStringLiteral("2024"));
        QCOMPARE(et.numDisk, QStringLiteral("1"));
        QCOMPARE(et.nomSoc, session().NomSocCourante);
        QCOMPARE(et.date, QStringLiteral("202404021830"));
        QCOMPARE(et.lastNumEcrit, QStringLiteral("5"));
        QCOMPARE(FichierProfil(QDir(cle).filePath("sauve.ini")).Lire("Plans Types", "PlanChoisi1"),
                 QStringLiteral("0003"));
        QVERIFY(QFile::exists(QDir(cle).filePath("sauve.md_")));
        QVERIFY(!QFile::exists(dossier->Fichier("sauve.mdb")));
        QVERIFY(!QFile::exists(dossier->Fichier("sauve.md_")));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Sauve WHERE NumDisk = 1 AND Date = "
                                "'20240402183015'"),
                 1);
        QCOMPARE(e.DisqueAttendu(), 2);
        QCOMPARE(e.findChild<ui::Grille*>("Tree1")->Texte(0, 0),
                 QStringLiteral("02/04/2024 18:30:15"));
    }

    // Une autre disquette que celle attendue : la question, et Oui continue ; des données
    // déjà là : Non arrête.
    void mauvaiseDisquette_questionPuisOui() {
        QVERIFY(FichierProfil(QDir(cle).filePath("sauve.ini")).Ecrire("Etiquette", "Societe", "7"));
        ecran::Sauve e;
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::Non);
        QTest::mouseClick(e.findChild<QPushButton*>("SSCommand1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(),
                 (QStringList{Attendue.arg(1),
                              "Cette disquette n'est pas la disquette attendue, voulez-vous "
                              "continuer tout de même ?"}));
        ui::ViderJournalBoites();
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::Non);
        QTest::mouseClick(e.findChild<QPushButton*>("SSCommand1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites().last(),
                 QStringLiteral("Votre disquette contient déjà des données \nSouhaitez-vous les "
                                "écraser ?"));
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Confirmation"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Sauve"), 0);
    }

    void pasDeDisquette_message() {
        QVERIFY(QDir(cle).removeRecursively());
        ecran::Sauve e;
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(e.findChild<QPushButton*>("SSCommand1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites().last(),
                 QStringLiteral("Il n'y a pas de disquette dans le lecteur ou elle n'est pas "
                                "formatée !"));
    }

    // Un compresseur qui n'écrit jamais le journal : l'attente a une fin, la boîte d'erreur,
    // et la sauvegarde n'est pas notée.
    void compressionQuiNeFinitPas_delaiPuisErreur() {
        const QString bloque = dossier->Fichier("bloque.sh");
        QFile f(bloque);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("#!/bin/sh\nsleep 2\n");
        f.close();
        QFile::setPermissions(bloque, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                          QFileDevice::ExeOwner);
        const QByteArray avant = qgetenv("MAROVAL_SZDD");
        qputenv("MAROVAL_SZDD", QFile::encodeName(bloque));
        ecran::Sauve::FixerDelaiCompression(700);
        ecran::Sauve e;
        QElapsedTimer chrono;
        chrono.start();
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(e.findChild<QPushButton*>("SSCommand1"), Qt::LeftButton);
        qputenv("MAROVAL_SZDD", avant);
        QVERIFY(chrono.elapsed() < 10000);
        QVERIFY(essai::TextesBoites().last().startsWith(
            "Une erreur s'est produite pendant la sauvegarde sur disquette\n"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Sauve"), 0);
        QVERIFY(!QFile::exists(QDir(cle).filePath("sauve.md_")));
        // Le processus abandonné finit seul ; le dossier d'essai ne part qu'après lui.
        QTest::qWait(2500);
    }

    // Aller-retour : l'exercice sauvegardé, puis restauré dans une base vide ; les sept
    // tables reviennent à l'identique et les livres se vérifient.
    void allerRetour_versUneBaseVide() {
        {
            ecran::Sauve e;
            Sauvegarder(e);
            QCOMPARE(essai::TextesBoites().last(), Reussie);
        }
        SQLite::Database origine(QFile::encodeName(dossier->Fichier("maroval.mdb")).toStdString());
        const QString avant = Exercice(origine);
        QVERIFY(avant.contains("-- 5 lignes")); // Ecriture : deux écritures, cinq lignes
        FermerBase();

        support::DossierEssai vide;
        essai::NouvelleSession(vide.Chemin());
        essai::OuvrirDossier(vide.Chemin());
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Options", "Disquette", cle));
        ui::ViderJournalBoites();
        ecran::Restaure r;
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(r.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(ui::JournalBoites()[1].texte,
                 QStringLiteral("Vous vous apprêtez à restaurer l'exercice 2024 de la société "
                                "Essais Dupont & Fils") +
                     " à la situation à laquelle il était au 02/04/2024 à 18:30\nLe numéro de la "
                     "dernière écriture était alors le 5.\nVoulez-vous continuer ?");
        QVERIFY(ui::JournalBoites().last().texte.startsWith("La restauration"));
        SQLite::Database restauree(QFile::encodeName(vide.Fichier("maroval.mdb")).toStdString());
        QCOMPARE(Exercice(restauree), avant);
        QCOMPARE(FichierProfil(CheminIni()).Lire("Plans Types", "PlanChoisi1"),
                 QStringLiteral("0003"));
        essai::SessionExercice("Essais Dupont & Fils", "31/03/2024");
        QVERIFY(Verification());

        // Une seconde fois : l'exercice existe, rien ne bouge.
        ui::ViderJournalBoites();
        const QString empreinte = support::EmpreinteLivres();
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(r.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Impossible d'effectuer cette restauration :\nVous avez déjà "
                                "restauré cet exercice ou\ncet exercice existe déjà dans votre "
                                "Maroval actuel."));
        QCOMPARE(support::EmpreinteLivres(), empreinte);
        FermerBase();
    }

    // Une disquette sans compression : la base telle quelle est recopiée.
    void disquetteSansCompression_copie() {
        QVERIFY(disquette::CopierExercice(1, 2024, {}));
        QVERIFY(QFile::copy(dossier->Fichier("sauve.mdb"), QDir(cle).filePath("sauve.mdb")));
        QVERIFY(disquette::EcrireEtiquette(2, 5, "202404021830"));
        essai::Executer("DELETE FROM Ecriture; DELETE FROM Budget; DELETE FROM Compte; DELETE FROM "
                        "Constante; DELETE FROM Section; DELETE FROM Ventilation");
        ecran::Restaure r;
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(r.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QVERIFY(ui::JournalBoites().last().texte.startsWith("La restauration"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Ecriture WHERE CleCpt = '012024'"), 5);
    }

    void disquetteVide_message() {
        ecran::Restaure r;
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(r.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Cette disquette ne contient pas une sauvegarde d'une comptabilité "
                                "Maroval\nRecommencez !"));
    }

    // Un sauve.md_ abîmé : la boîte de lecture, la base intacte.
    void fichierCompresseAbime_baseIntacte() {
        QVERIFY(disquette::EcrireEtiquette(1, 5, "202404021830"));
        QFile f(QDir(cle).filePath("sauve.md_"));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(CompresserSzdd(QByteArray(50000, 'x')).left(300));
        f.close();
        const QString empreinte = support::EmpreinteLivres();
        ecran::Restaure r;
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(r.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Problème à la lecture du fichier A:\\SAUVE.MD_"));
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Attention"));
        QCOMPARE(support::EmpreinteLivres(), empreinte);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestDisquette test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_disquette.moc"
