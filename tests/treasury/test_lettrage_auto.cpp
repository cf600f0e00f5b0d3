// Lettrage automatique : le solde de début contre un seul règlement égal, les factures avec
// leur règlement dans l'ordre des numéros (et la dissymétrie voulue de cette phase), les
// comptes soldés ; l'écran Tresor01, ses boîtes, et un arrêt au milieu qui ne change rien.
#include "EssaiTresor.h"
#include "support/DossierEssai.h"
#include "support/PiloteModal.h"

#include "treasury/DonneesTresor.h"
#include "treasury/Tresor01.h"
#include "ui/Application.h"
#include "ui/Boite.h"

#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

using namespace tresor_essai;
using ui::Reponse;

class TestLettrageAuto : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        Livres(dossier->Chemin());
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        FermerBase();
        dossier.reset();
    }

    // Solde de début 100,00 : seule la première des deux lignes de -100,00 prend 2.
    void soldeDebut_seulLePremierReglementEgal() {
        Ligne("411001", 1, -100);
        Ligne("411001", 2, -100);
        tresor::LettrerUnCpt("411001", 2024, essai::Euros(100));
        QCOMPARE(Lettrages({1, 2}), (QList<int>{2, 0}));
    }

    // Solde de début -250,00 : la facture de 250,00 prend 2, puis trouve son règlement jumeau
    // et repasse à 1 ; le solde de début reste ouvert.
    void soldeDebutCrediteur_factureRepriseParSonJumeau() {
        Ligne("411001", 1, 250);
        Ligne("411001", 2, -250);
        tresor::LettrerUnCpt("411001", 2024, -essai::Euros(250));
        QCOMPARE(Lettrages({1, 2}), (QList<int>{1, 1}));
    }

    // Un règlement marqué 2 n'est jamais repris par une facture.
    void reglementDuSoldeDebut_jamaisRepris() {
        Ligne("411001", 1, -80);
        Ligne("411001", 2, 80);
        tresor::LettrerUnCpt("411001", 2024, essai::Euros(80));
        QCOMPARE(Lettrages({1, 2}), (QList<int>{2, 0}));
    }

    // Trois factures de 50,00 et deux règlements : les deux premières factures sont lettrées.
    void troisFacturesDeuxReglements_ordreDeLecture() {
        for (double n : {3, 1, 5})
            Ligne("411001", n, 50);
        Ligne("411001", 2, -50);
        Ligne("411001", 4, -50);
        tresor::LettrerUnCpt("411001", 2024, Montant());
        QCOMPARE(Lettrages({1, 2, 3, 4, 5}), (QList<int>{1, 1, 1, 1, 0}));
        // Le compte soldé ou non décide du sort de la troisième (phase des comptes soldés).
        FixerCompte("411001", 0, 50);
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrage(5), 0);
        FixerCompte("411001", 0, 0);
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrage(5), 1);
    }

    // Solde nul sans paire égale : la phase des comptes soldés lettre tout à 1.
    void compteSoldeSansPaire_toutA1() {
        Ligne("411002", 1, 120);
        Ligne("411002", 2, -70);
        Ligne("411002", 3, -50);
        FixerCompte("411002", 0, 0);
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrages({1, 2, 3}), (QList<int>{1, 1, 1}));
    }

    // Des lignes déjà à 2 gardent leur 2 dans un compte soldé.
    void compteSolde_lesLignesA2Restent() {
        Ligne("411002", 1, -300, 2);
        Ligne("411002", 2, 40);
        FixerCompte("411002", 300, 40);
        FixerCompte("411002", 300, 0);
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrages({1, 2}), (QList<int>{2, 1}));
    }

    // Tout lettré : rien ne change, même par la phase des comptes soldés.
    void toutLettre_rienNeChange() {
        Ligne("411001", 1, 60, 1);
        Ligne("411001", 2, -60, 255);
        FixerCompte("411001", 0, 0);
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrages({1, 2}), (QList<int>{1, 255}));
    }

    // Une ligne à zéro ne lettre rien et n'est pas lettrée (hors compte soldé).
    void ligneAZero_jamaisPairee() {
        Ligne("411001", 1, 0);
        Ligne("411001", 2, 30);
        Ligne("411003", 3, 0);
        Ligne("411003", 4, -10);
        tresor::LettrerUnCpt("411001", 2024, Montant());
        tresor::LettrerUnCpt("411003", 2024, essai::Euros(0));
        QCOMPARE(Lettrages({1, 2, 3, 4}), (QList<int>{0, 0, 0, 0}));
    }

    // Les montants se comparent aux quatre décimales, sans tolérance.
    void montantsExacts_sansTolerance() {
        SQLite::Statement q(Base(), "INSERT INTO Ecriture (CleCpt, NumEcr, NumCptEcr, MntEcr, "
                                    "Lettrage) VALUES ('012024', 1, '411001', 500001, 0), "
                                    "('012024', 2, '411001', -500000, 0)");
        q.exec();
        tresor::LettrerUnCpt("411001", 2024, Montant());
        QCOMPARE(Lettrages({1, 2}), (QList<int>{0, 0}));
    }

    // Seuls les comptes de la classe choisie : un fournisseur n'est pas touché par les clients.
    void classe_seulementSesComptes() {
        Ligne("411001", 1, 10);
        Ligne("411001", 2, -10);
        Ligne("401001", 3, 10);
        Ligne("401001", 4, -10);
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrages({1, 2, 3, 4}), (QList<int>{1, 1, 0, 0}));
        tresor::LettrerClasse(Cle, tresor::MenuFournisseurs, 2024, {});
        QCOMPARE(Lettrages({3, 4}), (QList<int>{1, 1}));
    }

    // Un arrêt au milieu de la classe : chaque lettrage revient à ce qu'il était.
    void arretAuMilieu_rienNeChange() {
        Ligne("411001", 1, 10);
        Ligne("411001", 2, -10);
        Ligne("411002", 3, 20);
        Ligne("411002", 4, -20);
        FixerCompte("411001", 0, 5);
        FixerCompte("411002", 0, 5);
        bool arrete = false;
        try {
            tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, [](int n) {
                if (n == 2) throw std::runtime_error("arrêt");
            });
        } catch (const std::runtime_error&) {
            arrete = true;
        }
        QVERIFY(arrete);
        QCOMPARE(Lettrages({1, 2, 3, 4}), (QList<int>{0, 0, 0, 0}));
        tresor::LettrerClasse(Cle, tresor::MenuClients, 2024, {});
        QCOMPARE(Lettrages({1, 2, 3, 4}), (QList<int>{1, 1, 1, 1}));
    }

    // L'écran : aucun compte de la classe, le message et pas de question.
    void ecran_aucunCompte() {
        essai::Executer("DELETE FROM Compte WHERE CleCpt = '012024' AND Menu = 160");
        ui::RepondreBoite(Reponse::OK);
        ecran::Tresor01 e;
        QTest::mouseClick(e.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(), QStringList{"Il n'y a aucun compte à lettrer"});
        QCOMPARE(ui::JournalBoites().last().boutons, ui::Boutons::OK);
        QCOMPARE(e.MenuTiers, 160);
    }

    // Les clients lettrés par le bouton, la question, Non reste sur l'écran ; Oui ouvre le
    // lettrage manuel à sa place.
    void ecran_clientsPuisQuestion() {
        Ligne("411001", 1, 10);
        Ligne("411001", 2, -10);
        ui::RepondreBoite(Reponse::Non);
        ecran::Tresor01 e;
        e.show();
        QTest::mouseClick(e.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        const ui::EntreeJournal b = ui::JournalBoites().last();
        QCOMPARE(b.texte, QStringLiteral("Le lettrage automatique est terminé.\n\nSouhaitez-vous "
                                         "lancer le lettrage manuel ?"));
        QCOMPARE(b.icone, ui::Icone::Question);
        QCOMPARE(b.boutons, ui::Boutons::OuiNon);
        QCOMPARE(Lettrages({1, 2}), (QList<int>{1, 1}));
        QVERIFY(e.isVisible());
        QVERIFY(e.findChild<QProgressBar*>("Gauge1")->isHidden());

        support::PiloteModal pilote;
        pilote.Attendre("Tresor01", support::Cliquer("Command1"))
            .AttendreBoite(b.texte, "Oui")
            .Attendre("Tresor02", support::Cliquer("Command3"));
        pilote.Demarrer();
        ecran::Tresor01 autre;
        autre.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(!autre.isVisible());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestLettrageAuto test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_lettrage_auto.moc"
