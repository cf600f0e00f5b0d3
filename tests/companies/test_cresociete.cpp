// Création d'une société et de son premier exercice, modification de ses coordonnées,
// retour sans société, et les deux restaurations d'une base entière.

#include "Essai.h"

#include "companies/CreSociete.h"
#include "companies/Restauration.h"
#include "session/FichierProfil.h"
#include "store/Exercices.h"
#include "ui/Application.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace support;
using essai::TexteChamp;

class TestCreSociete : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;

    std::unique_ptr<ecran::CreSociete> Montrer(int mode, int numSoc = 0) {
        session().ModeCreSociete = static_cast<std::int16_t>(mode);
        auto ecran = std::make_unique<ecran::CreSociete>();
        if (numSoc) ecran->FixerNumSoc(numSoc);
        ecran->show();
        QCoreApplication::processEvents();
        return ecran;
    }

    void Remplir(ecran::CreSociete* e, const QString& jour, const QString& mois,
                 const QString& annee) {
        TaperTexte(e, "Text1", "Menuiserie Léa");
        TaperTexte(e, "Text2", "3 rue des Tilleuls");
        TaperTexte(e, "Text3", "69003");
        TaperTexte(e, "Text4", "Lyon");
        TaperTexte(e, "Text5", "0478123456");
        TaperTexte(e, "Text6", jour);
        TaperTexte(e, "Text7", mois);
        TaperTexte(e, "Text8", annee);
    }

    bool Visible(QWidget* e, const char* nom) {
        auto* w = e->findChild<QWidget*>(nom);
        return w && w->isVisible();
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        essai::OuvrirEssai(*dossier);
        essai::ReleverToutesOuvertures();
        ui::FixerHorloge(QDateTime(QDate(2024, 3, 10), QTime(9, 30)));
    }
    void cleanup() {
        ecran::FixerReleve({});
        FermerBase();
        dossier.reset();
    }

    void dateDeFin_dernierJourDuMoisPrecedentUnAnPlusTard() {
        QCOMPARE(CalculDateFin(1, 1, 2024), QStringLiteral("20241231"));
        QCOMPARE(CalculDateFin(1, 2, 2024), QStringLiteral("20250131"));
        QCOMPARE(CalculDateFin(15, 3, 2023), QStringLiteral("20240229"));
        QCOMPARE(CalculDateFin(1, 3, 2022), QStringLiteral("20230228"));
        // Seul le 1er janvier garde la fin dans la même année : un 15 janvier finit au
        // 31 décembre de l'année suivante, la règle le veut ainsi.
        QCOMPARE(CalculDateFin(15, 1, 2024), QStringLiteral("20251231"));
        QCOMPARE(CalculDateFin(1, 7, 2024), QStringLiteral("20250630"));
        QCOMPARE(CalculDateDebut(45, 1, 2024), QStringLiteral("20240145"));
    }

    void creation_titreEtControles() {
        auto e = Montrer(1);
        QCOMPARE(e->objectName(), QStringLiteral("CreSociete"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Créer une comptabilité"));
        QVERIFY(Visible(e.get(), "Command1"));
        QVERIFY(!Visible(e.get(), "Command4"));
        QVERIFY(!Visible(e.get(), "Text9"));
        QVERIFY(!Visible(e.get(), "Label9"));
        QVERIFY(Visible(e.get(), "Text6") && Visible(e.get(), "Text7") &&
                Visible(e.get(), "Text8"));
        QVERIFY(Visible(e.get(), "Command3"));
        QCOMPARE(e->findChild<QPushButton*>("Command2")->text(), QStringLiteral("Retour"));
        QCOMPARE(e->findChild<QPushButton*>("Command5")->text(), QStringLiteral("Restaurer"));
        QCOMPARE(e->findChild<QPushButton*>("Command6")->text(),
                 QStringLiteral("Autre Restauration"));
        QCOMPARE(e->findChild<QLabel*>("Label11")->text(),
                 QStringLiteral("Si l'exercice doit être plus petit ou plus grand qu'une année "
                                "voir l'aide."));
        QCOMPARE(TexteChamp(e.get(), "Text8"), QStringLiteral("2024"));
    }

    void creation_ecritSocieteEtPremierExercice() {
        auto e = Montrer(1);
        Remplir(e.get(), "01", "02", "2024");
        CliquerBouton(e.get(), "Command1");
        QVERIFY(ui::JournalBoites().isEmpty());
        QVERIFY(!e->isVisible());
        const int n = e->NumSocCreee();
        QVERIFY(n > 0);
        table::Societe s;
        QVERIFY(LireSociete(n, s));
        QCOMPARE(s.Nom.trimmed(), QStringLiteral("Menuiserie Léa"));
        QCOMPARE(s.Adresse.trimmed(), QStringLiteral("3 rue des Tilleuls"));
        QCOMPARE(s.Postal.trimmed(), QStringLiteral("69003"));
        QCOMPARE(s.Ville.trimmed(), QStringLiteral("Lyon"));
        QCOMPARE(s.Telephone.trimmed(), QStringLiteral("04 78 12 34 56"));
        const table::Constante c = essai::Constante(CleExercice(n, 2024));
        QCOMPARE(c.DateDebut.trimmed(), QStringLiteral("20240201"));
        QCOMPARE(c.DateFin.trimmed(), QStringLiteral("20250131"));
        QCOMPARE(c.DateSaisie.trimmed(), QStringLiteral("20240201"));
        QCOMPARE(c.SymboleMon, QStringLiteral("€"));
        QCOMPARE(c.LastNumEcrit, 0.0);
        QVERIFY(!c.ExerciceClos && !c.NouveauPC && !c.TransfertSoldes && !c.OuvertureClos);
        QVERIFY(c.TDJG.estNul() && c.E1.estNul() && c.Resultat.estNul());
    }

    void creation_nomVide_refuseAvecFocus() {
        auto e = Montrer(1);
        TaperTexte(e.get(), "Text1", "   ");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e.get(), "Command1");
        QCOMPARE(essai::TextesBoites(), QStringList({"Vous devez entrer un nom.\nRecommencez"}));
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text1"));
        QVERIFY(e->isVisible());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe"), 0);
    }

    void creation_mois0et13_refuses() {
        auto e = Montrer(1);
        Remplir(e.get(), "01", "0", "2024");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e.get(), "Command1");
        TaperTexte(e.get(), "Text7", "13");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e.get(), "Command1");
        QCOMPARE(essai::TextesBoites(), QStringList({"Le mois saisi est incorrect.\nRecommencez",
                                                     "Le mois saisi est incorrect.\nRecommencez"}));
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text7"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe"), 0);
    }

    void creation_annees1949et2101_refusees() {
        auto e = Montrer(1);
        const QString refus = QStringLiteral("L'année saisie semble \"farfelue\".\nRecommencez");
        for (const char* annee : {"1949", "2101"}) {
            Remplir(e.get(), "01", "01", annee);
            ui::RepondreBoite(ui::Reponse::OK);
            CliquerBouton(e.get(), "Command1");
        }
        QCOMPARE(essai::TextesBoites(), QStringList({refus, refus}));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe"), 0);
    }

    void creation_annees1950et2100_passentApresConfirmation() {
        const QString question = QStringLiteral("L'année saisie est différente de l'année en "
                                                "cours.\nConfirmez-vous ?");
        for (const char* annee : {"1950", "2100"}) {
            auto e = Montrer(1);
            Remplir(e.get(), "01", "01", annee);
            ui::RepondreBoite(ui::Reponse::Oui);
            CliquerBouton(e.get(), "Command1");
            QVERIFY(!e->isVisible());
            QCOMPARE(essai::Constante(CleExercice(e->NumSocCreee(), QString(annee).toInt()))
                         .DateFin.trimmed(),
                     QString(annee) + "1231");
        }
        QCOMPARE(essai::TextesBoites(), QStringList({question, question}));
    }

    void creation_autreAnneeNonConfirmee_rienNEstCree() {
        auto e = Montrer(1);
        Remplir(e.get(), "01", "01", "2023");
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(e.get(), "Command1");
        QVERIFY(e->isVisible());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe"), 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Constante"), 0);
    }

    void creation_leJourNEstPasControle() {
        auto e = Montrer(1);
        Remplir(e.get(), "45", "03", "2024");
        CliquerBouton(e.get(), "Command1");
        const table::Constante c = essai::Constante(CleExercice(e->NumSocCreee(), 2024));
        QCOMPARE(c.DateDebut.trimmed(), QStringLiteral("20240345"));
        QCOMPARE(c.DateFin.trimmed(), QStringLiteral("20250228"));
    }

    void fleches_parcourentLesChampsEnCreation() {
        auto e = Montrer(1);
        auto* premier = e->findChild<QLineEdit*>("Text1");
        premier->setFocus();
        QStringList parcours;
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
            parcours << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(parcours,
                 QStringList({"Text2", "Text3", "Text4", "Text5", "Text7", "Text8", "Text1"}));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text8"));
        e->findChild<QLineEdit*>("Text5")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text7"));
    }

    void entreeDansLAnnee_creeLaSociete() {
        auto e = Montrer(1);
        Remplir(e.get(), "01", "01", "2024");
        QTest::keyClick(e->findChild<QLineEdit*>("Text8"), Qt::Key_Return);
        QVERIFY(!e->isVisible());
        QVERIFY(e->NumSocCreee() > 0);
    }

    void modification_titreChampsEtEnregistrement() {
        table::Societe s;
        s.Nom = "Garage Dupont";
        s.Adresse = "Route de Vienne";
        s.Postal = "38000";
        s.Ville = "Grenoble";
        s.Telephone = "0476000000";
        const int n = AjouterSociete(s);
        auto e = Montrer(2, n);
        QCOMPARE(e->windowTitle(), QStringLiteral("Modifier une comptabilité"));
        QVERIFY(!Visible(e.get(), "Command1"));
        QVERIFY(Visible(e.get(), "Command4"));
        QVERIFY(!Visible(e.get(), "Text6") && !Visible(e.get(), "Text7") &&
                !Visible(e.get(), "Text8") && !Visible(e.get(), "Label6"));
        QVERIFY(!Visible(e.get(), "Command3"));
        QCOMPARE(TexteChamp(e.get(), "Text9"), QString::number(n));
        QCOMPARE(TexteChamp(e.get(), "Text1"), QStringLiteral("Garage Dupont"));
        QCOMPARE(TexteChamp(e.get(), "Text4"), QStringLiteral("Grenoble"));
        QCOMPARE(TexteChamp(e.get(), "Text5"), QStringLiteral("04 76 00 00 00"));
        TaperTexte(e.get(), "Text4", "Saint-Martin-d'Hères");
        CliquerBouton(e.get(), "Command4");
        QVERIFY(!e->isVisible());
        QVERIFY(LireSociete(n, s));
        QCOMPARE(s.Ville.trimmed(), QStringLiteral("Saint-Martin-d'Hères"));
        QCOMPARE(s.Nom.trimmed(), QStringLiteral("Garage Dupont"));
        QCOMPARE(s.Telephone.trimmed(), QStringLiteral("04 76 00 00 00"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Constante"), 0);
    }

    void modification_unTelephoneHorsMasqueResteIntact() {
        table::Societe s;
        s.Nom = "Import Export";
        s.Telephone = "+44 20 7946 00";
        const int n = AjouterSociete(s);
        auto e = Montrer(2, n);
        QCOMPARE(TexteChamp(e.get(), "Text5"), QStringLiteral("+44 20 7946 00"));
        CliquerBouton(e.get(), "Command4");
        QVERIFY(LireSociete(n, s));
        QCOMPARE(s.Telephone.trimmed(), QStringLiteral("+44 20 7946 00"));
    }

    void fleches_enModificationNeQuittentPasLesCoordonnees() {
        const int n = essai::Societe("Garage Dupont");
        auto e = Montrer(2, n);
        e->findChild<QLineEdit*>("Text5")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text5"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text4"));
        e->findChild<QLineEdit*>("Text1")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text1"));
    }

    void retour_avecDesSocietes_ferme() {
        session().AucuneSociete = false;
        auto e = Montrer(1);
        CliquerBouton(e.get(), "Command2");
        QVERIFY(!e->isVisible());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void retour_sansSociete_ouiReste_nonTermine() {
        session().AucuneSociete = true;
        auto e = Montrer(1);
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(e.get(), "Command2");
        QVERIFY(e->isVisible());
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Première utilisation de MAROVAL"));
        QCOMPARE(ui::JournalBoites()[0].texte,
                 QStringLiteral("Vous ne pourrez pas utiliser MAROVAL si vous ne créez pas au "
                                "moins UNE société.\nCliquez sur Oui pour créer votre première "
                                "société."));
        QVERIFY(!ui::FinDemandee());
        // Fermer la fenêtre pose la même question.
        ui::RepondreBoite(ui::Reponse::Non);
        e->close();
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::JournalBoites().size(), 2);
    }

    void aide_pageDeLaCreation() {
        auto e = Montrer(1);
        CliquerBouton(e.get(), "Command3");
        QCOMPARE(ui::JournalDialogues().size(), 1);
        QCOMPARE(ui::JournalDialogues()[0].detail, QStringLiteral("3"));
        QVERIFY(ui::JournalDialogues()[0].accepte);
    }

    void autreRestauration_avertissementPuisEcranRestaure() {
        auto e = Montrer(1);
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(e.get(), "Command6");
        QVERIFY(essai::EcransOuverts().isEmpty());
        QVERIFY(ui::JournalBoites()[0].texte.startsWith(
            "RESTAURATION D'UNE SAUVEGARDE D'UNE VERSION PRECEDENTE DE MAROVAL.\n"));
        QVERIFY(
            ui::JournalBoites()[0].texte.endsWith("EST-CE VRAIMENT CE QUE VOUS VOULEZ FAIRE ?"));
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(e.get(), "Command6");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Restaure"}));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestCreSociete t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_cresociete.moc"
