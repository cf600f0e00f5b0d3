// Un mois de trésorerie par les écrans, sur des écritures passées par le moteur : factures
// avec échéances, règlements, lettrage automatique, règlement partiel du solde de début
// lettré à la main, prévisions dont le contrôle s'accorde avec les collectifs 410 et 400,
// relevé de banque pointé ligne à ligne jusqu'au solde de clôture du relevé.
#include "EssaiTresor.h"
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "chart/Ouverture.h"
#include "companies/General.h"
#include "posting/Verification.h"
#include "treasury/Previsions.h"
#include "treasury/Rappr.h"
#include "treasury/Tresor01.h"
#include "treasury/Tresor02.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace tresor_essai;
using essai::Euros;
using ui::Reponse;

namespace {

QString Texte(QWidget* e, const char* nom) {
    return e->findChild<QLabel*>(nom)->text();
}

// Numéro de la ligne d'un compte dans la dernière écriture passée.
double LigneDe(const char* compte) {
    SQLite::Statement q(Base(), "SELECT max(NumEcr) FROM Ecriture WHERE CleCpt = '012024' AND "
                                "NumCptEcr = ?");
    q.bind(1, compte);
    return q.executeStep() ? q.getColumn(0).getDouble() : -1;
}

// L'échéance que la saisie aurait rangée sur la ligne.
void Echeance(double numero, const char* date) {
    SQLite::Statement q(Base(), "UPDATE Ecriture SET DateEcheance = ?, MoisEcheance = ? WHERE "
                                "CleCpt = '012024' AND NumEcr = ?");
    q.bind(1, date);
    q.bind(2, std::string(date).substr(4, 2));
    q.bind(3, numero);
    q.exec();
}

} // namespace

class TestTresorerieMois : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        Livres(dossier->Chemin());
        session().MoisDebutExercice = CalculMoisDebutExercice("20240101");
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        ecran::FermerGeneral();
        FermerBase();
        dossier.reset();
    }

    void unMoisDeTresorerie() {
        // Bilan d'ouverture : la banque, un client qui doit 300,00 de l'an dernier.
        EnregistrerMontantOuverture("512", Montant(), Euros(5000), QString());
        EnregistrerMontantOuverture("411001", Montant(), Euros(300), "410");
        EnregistrerMontantOuverture("101", Montant(), Euros(5300), QString());

        // Avril : factures, achats, règlements.
        essai::Ecriture("02/04/2024", "V",
                        {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
        Echeance(LigneDe("411001"), "20240415");
        essai::Ecriture("03/04/2024", "V",
                        {{"411002", "D", 240}, {"707", "C", 200}, {"44571", "C", 40}});
        Echeance(LigneDe("411002"), "20240430");
        essai::Ecriture("04/04/2024", "V",
                        {{"411003", "D", 60}, {"707", "C", 50}, {"44571", "C", 10}});
        essai::Ecriture("05/04/2024", "A",
                        {{"607", "D", 80}, {"44566", "D", 16}, {"401001", "C", 96}});
        Echeance(LigneDe("401001"), "20240410");
        essai::Ecriture("06/04/2024", "A",
                        {{"607", "D", 40}, {"44566", "D", 8}, {"401002", "C", 48}});
        Echeance(LigneDe("401002"), "20240520");
        essai::Ecriture("15/04/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
        const double reglementFacture = LigneDe("512");
        essai::Ecriture("16/04/2024", "T", {{"512", "D", 100}, {"411001", "C", 100}});
        const double acompteAncien = LigneDe("411001");
        const double encaissementAcompte = LigneDe("512");
        essai::Ecriture("20/04/2024", "T", {{"512", "D", 200}, {"411002", "C", 200}});
        const double acompte411002 = LigneDe("512");
        essai::Ecriture("25/04/2024", "T", {{"401001", "D", 96}, {"512", "C", 96}});
        const double chequeFournisseur = LigneDe("512");
        QVERIFY(Verification());
        session().DateSaisieCourante = QStringLiteral("30/04/2024");

        // Le menu de la trésorerie depuis l'écran principal, puis le lettrage automatique
        // des clients et des fournisseurs.
        ecran::MontrerGeneral();
        {
            const QString fin = QStringLiteral("Le lettrage automatique est terminé.\n\n"
                                               "Souhaitez-vous lancer le lettrage manuel ?");
            support::PiloteModal pilote;
            pilote.Attendre("Tresor00", support::Cliquer("Command2"))
                .Attendre("Tresor01", support::Cliquer("Command1"))
                .AttendreBoite(fin, "Non")
                .Attendre("Tresor01", support::Cliquer("Command2"))
                .AttendreBoite(fin, "Non")
                .Attendre("Tresor01", support::Cliquer("Command3"))
                .Attendre("Tresor00", support::Cliquer("Command3"));
            pilote.Demarrer();
            ecran::General::Instance()->Toolbar2_ButtonClick("Tresorerie");
            QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        }
        // La facture de 120,00 et son règlement, la facture et le chèque du fournisseur.
        QCOMPARE(essai::Compter("SELECT count(*) FROM Ecriture WHERE CleCpt = '012024' AND "
                                "NumCptEcr IN ('411001', '401001') AND Lettrage = 1"),
                 4);
        QCOMPARE(Lettrage(acompteAncien), 0);

        // Le règlement de 100,00 sur le solde de début, lettré à la main en partiel.
        {
            ecran::Tresor02 manuel;
            manuel.show();
            ui::Grille* comptes = manuel.findChild<ui::Grille*>("Tree1");
            QVERIFY(support::CliquerCellule(comptes, comptes->ChercherTexte(0, "411001"), 0));
            QCOMPARE(Texte(&manuel, "LSde"), essai::AfficheEuros(300));
            ui::Grille* lignes = manuel.findChild<ui::Grille*>("Tree2");
            QCOMPARE(lignes->NombreLignes(), 1);
            QVERIFY(support::CliquerCellule(lignes, 0, 3));
            QTest::mouseClick(manuel.findChild<QPushButton*>("Command1"), Qt::LeftButton);
            QCOMPARE(Lettrage(acompteAncien), 2);
            QCOMPARE(Texte(&manuel, "LSde"), essai::AfficheEuros(200));
        }

        // Prévisions : ce qui reste ouvert, et le contrôle par les collectifs.
        {
            ecran::Tresor03 clients;
            QCOMPARE(Texte(&clients, "LTotPrev"), essai::AfficheEuros(240));
            QCOMPARE(Texte(&clients, "LTotFac"), essai::AfficheEuros(60));
            QCOMPARE(Texte(&clients, "LCumSde"), essai::AfficheEuros(200));
            QCOMPARE(Texte(&clients, "LCumReg"), essai::AfficheEuros(-200));
            table::Compte collectif;
            QVERIFY(LireCompte(Cle, "410", collectif));
            QCOMPARE(collectif.Solde, Euros(300));
            QCOMPARE(Texte(&clients, "LSolCalc"), essai::AfficheEuros(300));
            QCOMPARE(Texte(&clients, "LSoldColl"), Texte(&clients, "LSolCalc"));
            ecran::Tresor04 fournisseurs;
            QCOMPARE(Texte(&fournisseurs, "LTotPrev"), essai::AfficheEuros(48));
            QVERIFY(LireCompte(Cle, "400", collectif));
            QCOMPARE(Texte(&fournisseurs, "LSoldColl"),
                     FormaterMontant(collectif.Solde, session().FormatMontant));
            QCOMPARE(Texte(&fournisseurs, "LSolCalc"), Texte(&fournisseurs, "LSoldColl"));
        }

        // Le relevé d'avril : les trois encaissements, pas encore le chèque du fournisseur.
        const QList<double> releve = {reglementFacture, encaissementAcompte, acompte411002};
        Montant clotureReleve = Euros(5000);
        for (double n : releve)
            clotureReleve += tresor::MontantLigne(Cle, n);
        {
            support::PiloteModal pilote;
            pilote.Attendre("Rappr", [&](QWidget* f) {
                auto* rappr = static_cast<ecran::Rappr*>(f);
                QTest::mouseClick(rappr->findChild<QPushButton*>("Command6"), Qt::LeftButton);
                ui::Grille* lignes = rappr->findChild<ui::Grille*>("Tree2");
                for (double n : releve) {
                    const int ligne = lignes->ChercherTexte(0, QString::number(n));
                    if (ligne < 0 || !support::CliquerCellule(lignes, ligne, 2))
                        support::PiloteModal::Actif()->Echouer("ligne du relevé introuvable");
                }
                if (Texte(rappr, "Label13") !=
                    FormaterMontant(clotureReleve, session().FormatMontant))
                    support::PiloteModal::Actif()->Echouer("solde théorique " +
                                                           Texte(rappr, "Label13"));
                QTest::mouseClick(rappr->findChild<QPushButton*>("Command4"), Qt::LeftButton);
            });
            pilote.Demarrer();
            ecran::General::Instance()->Toolbar2_ButtonClick("Rappr");
            QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        }
        QCOMPARE(clotureReleve, Euros(5420));
        QCOMPARE(Lettrage(chequeFournisseur), 0);
        for (double n : releve)
            QCOMPARE(Lettrage(n), 1);
        // Les montants des livres n'ont pas bougé.
        QVERIFY(Verification());
        QCOMPARE(ui::JournalBoites().size(), 2);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestTresorerieMois test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_tresorerie_mois.moc"
