// Contre-passation par l'écran : le groupe se trouve depuis n'importe laquelle de ses
// lignes, le miroir passe par le moteur à la date de saisie, et les livres restent justes.

#include "EssaiJournal.h"

#include "entry/Annul.h"
#include "ui/Application.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <memory>

using namespace essai;

class TestAnnul : public QObject {
    Q_OBJECT
    LivresTroisGroupes livres;
    std::unique_ptr<ecran::Annul> annul;
    ui::Grille* t1 = nullptr;
    ui::Grille* t2 = nullptr;

    void Ouvrir(int lignesAttendues) {
        annul = std::make_unique<ecran::Annul>();
        t1 = annul->findChild<ui::Grille*>("Tree1");
        t2 = annul->findChild<ui::Grille*>("Tree2");
        annul->show();
        QTRY_COMPARE(t1->NombreLignes(), lignesAttendues);
        QVERIFY(!annul->findChild<QProgressBar*>("Gauge1")->isVisible());
    }
    QPushButton* Bouton(const char* nom) { return annul->findChild<QPushButton*>(nom); }
    // Groupe cliqué, contre-passé puis confirmé.
    void ContrePasser(int numeroClique) {
        CliquerNumero(t1, numeroClique);
        QTest::mouseClick(Bouton("Command3"), Qt::LeftButton);
        QVERIFY(Bouton("Command2")->isVisible());
        QTest::mouseClick(Bouton("Command2"), Qt::LeftButton);
    }
    // Les lignes debut..fin reprennent en miroir les lignes source..source+n-1.
    void VerifierMiroir(int source, int debut, int n, const QString& libelle) {
        for (int i = 0; i < n; ++i) {
            const table::Ecriture o = LigneLue(source + i), r = LigneLue(debut + i);
            QCOMPARE(r.NumCptEcr, o.NumCptEcr);
            QCOMPARE(r.MntEcr, -o.MntEcr);
            QCOMPARE(r.DCEcr,
                     o.DCEcr == QLatin1String("D") ? QStringLiteral("C") : QStringLiteral("D"));
            QCOMPARE(r.Journal, o.Journal);
            QCOMPARE(r.DateEcr, QStringLiteral("20240420"));
            QCOMPARE(r.DatePiece, o.DatePiece);
            QCOMPARE(r.LibEcr.trimmed(), libelle);
            QCOMPARE(r.Fin, i == n - 1);
        }
    }

private slots:
    void init() { livres.Ouvrir(); }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        annul.reset();
        livres.Fermer();
    }

    void journal_plusRecentesDabord_separateurEntreGroupes() {
        Ouvrir(13);
        QCOMPARE(annul->windowTitle(),
                 QStringLiteral("Annulation d'une écriture par contre-passation automatique"));
        QCOMPARE(Numeros(t1), (QList<int>{11, 10, 9, -1, 8, 7, 6, 5, 4, -1, 3, 2, 1}));
        QCOMPARE(t1->NombreColonnes(), 8);
        QCOMPARE(t1->Titre(5), QStringLiteral("Débit"));
        QVERIFY(t1->isColumnHidden(7));
        const int l = LigneDuNumero(t1, 8);
        QCOMPARE(t1->Texte(l, 1), QStringLiteral("15/03/2024"));
        QCOMPARE(t1->Texte(l, 4), QStringLiteral("626"));
        QCOMPARE(t1->Texte(l, 5), QString());
        // Le montant rangé, signé : un crédit sur une charge se lit négatif.
        QCOMPARE(t1->Texte(l, 6), QStringLiteral("-300,00 E"));
        QCOMPARE(t1->Texte(LigneDuNumero(t1, 4), 5), QStringLiteral("1 200,00 E"));
        QCOMPARE(t1->Texte(l, 7), QStringLiteral("D"));
        QVERIFY(!Bouton("Command2")->isVisible());
        QVERIFY(!annul->findChild<QLabel*>("Label2")->isVisible());
    }

    void clicSurPremiereMilieuEtDerniereLigne_memeGroupe() {
        Ouvrir(13);
        for (int numero : {4, 6, 8}) {
            CliquerNumero(t1, numero);
            QCOMPARE(annul->NumDebutGroupe, 4);
            QCOMPARE(annul->NumFinGroupe, 8);
            QCOMPARE(Numeros(t2), (QList<int>{4, 5, 6, 7, 8}));
        }
    }

    void clicSurSeparateur_messageEtRienNeChange() {
        Ouvrir(13);
        CliquerNumero(t1, 6);
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerCellule(t1, 3, 0));
        QCOMPARE(DerniereBoite(),
                 QStringLiteral("Veuillez sélectionner une ligne contenant une écriture"));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Exclamation);
        QCOMPARE(Numeros(t2), (QList<int>{4, 5, 6, 7, 8}));
        QCOMPARE(annul->NumDebutGroupe, 4);
    }

    void seuleTransaction_rechercheArreteeAZero() {
        annul.reset();
        livres.Fermer();
        livres.dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(livres.dossier->Chemin());
        Vente(Euros(10), Euros(2));
        Ouvrir(3);
        CliquerNumero(t1, 3);
        QCOMPARE(annul->NumDebutGroupe, 1);
        QCOMPARE(annul->NumFinGroupe, 3);
        CliquerNumero(t1, 1);
        QCOMPARE(Numeros(t2), (QList<int>{1, 2, 3}));
    }

    // Le plus petit groupe possible, deux lignes, au début comme à la fin du journal : cliqué
    // sur l'une ou l'autre, la recherche rend les deux.
    void groupesDeDeuxLignes_cliquesSurChacune() {
        annul.reset();
        LivresGroupesDeDeux(livres);
        Ouvrir(9);
        for (const auto& [clic, debut, fin] :
             {std::tuple{1, 1, 2}, {2, 1, 2}, {6, 6, 7}, {7, 6, 7}, {3, 3, 5}}) {
            CliquerNumero(t1, clic);
            QCOMPARE(annul->NumDebutGroupe, debut);
            QCOMPARE(annul->NumFinGroupe, fin);
            QList<int> attendus;
            for (int n = debut; n <= fin; ++n)
                attendus << n;
            QCOMPARE(Numeros(t2), attendus);
        }
    }

    void contrePasserSansGroupe_message() {
        Ouvrir(13);
        const QStringList avant = VidageTable("wSaisie");
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(Bouton("Command3"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), QStringLiteral("Sélectionnez d'abord un groupe d'écritures"));
        QVERIFY(!Bouton("Command2")->isVisible());
        QCOMPARE(VidageTable("wSaisie"), avant);
    }

    void contrePasser_montreLeMiroirSansRienPasser() {
        session().DateSaisieCourante = QStringLiteral("20/04/2024");
        Ouvrir(13);
        CliquerNumero(t1, 5);
        QTest::mouseClick(Bouton("Command3"), Qt::LeftButton);
        QVERIFY(Bouton("Command2")->isVisible());
        QVERIFY(annul->findChild<QLabel*>("Label2")->isVisible());
        QCOMPARE(annul->NumProchain, 12);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE CleCpt='012024'"), 11);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 5);
        QCOMPARE(t2->NombreLignes(), 5);
        // 411001 était au débit : il passe au crédit ; 707 passe au débit.
        QCOMPARE(t2->Texte(0, 4), QStringLiteral("411001"));
        QCOMPARE(t2->Texte(0, 5), QString());
        QCOMPARE(t2->Texte(0, 6), QStringLiteral("1 200,00 E"));
        QCOMPARE(t2->Texte(2, 5), QStringLiteral("1 000,00 E"));
        QCOMPARE(t2->Texte(4, 5), QStringLiteral("300,00 E"));
        QCOMPARE(t2->Texte(0, 1), QStringLiteral("20/04/2024"));
        QCOMPARE(t2->Texte(0, 3), QStringLiteral("Annul écritures 4 à 8"));
    }

    void quitterAvantConfirmation_aucuneTrace() {
        Ouvrir(13);
        const QStringList avant = Vidage();
        CliquerNumero(t1, 8);
        QTest::mouseClick(Bouton("Command3"), Qt::LeftButton);
        QTest::mouseClick(Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
        QCOMPARE(Vidage(), avant);
    }

    void contrePassationPuisSaPropreContrePassation_livresJustes() {
        session().DateSaisieCourante = QStringLiteral("20/04/2024");
        Ouvrir(13);
        ContrePasser(6);
        QCOMPARE(Bouton("Command2")->isVisible(), false);
        QTRY_COMPARE(t1->NombreLignes(), 19);
        QCOMPARE(Numeros(t1).mid(0, 5), (QList<int>{16, 15, 14, 13, 12}));
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
        VerifierMiroir(4, 12, 5, QStringLiteral("Annul écritures 4 à 8"));
        QCOMPARE(DernierNumero(), 16.0);
        QCOMPARE(EcartsDesLivres(livres.depart), QString());

        // Le miroir du miroir rend les montants d'origine.
        ContrePasser(14);
        QTRY_COMPARE(t1->NombreLignes(), 25);
        VerifierMiroir(12, 17, 5, QStringLiteral("Annul écritures 12 à 16"));
        for (int i = 0; i < 5; ++i)
            QCOMPARE(LigneLue(17 + i).MntEcr, LigneLue(4 + i).MntEcr);
        QCOMPARE(EcartsDesLivres(livres.depart), QString());
        table::Compte c;
        LireCompte(Cle, QStringLiteral("411001"), c);
        QCOMPARE(c.Solde, Euros(120 + 1200 + 240));
    }

    void sectionsAnalytiques_reportees() {
        Executer("UPDATE Ecriture SET SectionEcr=7, VentilEcr=1 WHERE NumEcr=10");
        Ouvrir(13);
        CliquerNumero(t1, 10);
        QTest::mouseClick(Bouton("Command3"), Qt::LeftButton);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie WHERE wSectionEcr=7 AND wVentilEcr=1"), 1);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie WHERE wSectionEcr=0 AND wVentilEcr=0"), 2);
        QTest::mouseClick(Bouton("Command2"), Qt::LeftButton);
        QCOMPARE(LigneLue(13).SectionEcr, 7);
        QVERIFY(LigneLue(13).VentilEcr);
        QCOMPARE(LigneLue(12).SectionEcr, 0);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestAnnul t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_annul.moc"
