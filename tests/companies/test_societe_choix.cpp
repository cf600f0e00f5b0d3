// Choix de la société, de l'exercice et de la date de saisie : listes, refus de la date,
// questions, ce que le choix écrit (session, écran principal, base, réglages).

#include "Essai.h"

#include "base/Reglages.h"
#include "companies/General.h"
#include "companies/Societe.h"
#include "ui/Application.h"
#include "ui/ChampDate.h"
#include "ui/Fin.h"

#include <QtTest>

using namespace support;
using essai::TexteChamp;

class TestSocieteChoix : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;
    int martin = 0;

    // Martin : exercices 2023 (clos) et 2024 (ouvert, saisie au 15/03/2024) ; Dupont : aucun.
    void Preparer() {
        martin = essai::Societe(QStringLiteral("Boulangerie Martin"));
        essai::Exercice e2023;
        e2023.debut = "20230101";
        e2023.fin = "20231231";
        e2023.clos = true;
        essai::AjouterExercice(martin, 2023, e2023);
        essai::AjouterAnnee(martin, 2024, "20240315");
        essai::Societe(QStringLiteral("Garage Dupont"));
    }

    // Martin choisi, exercice 2024 choisi : la date de saisie est au 15/03/2024.
    std::unique_ptr<ecran::Societe> ChoixMartin2024() {
        auto choix = essai::MontrerChoix();
        ChoisirLigneListe(choix.get(), "List1", 0);
        ChoisirLigneListe(choix.get(), "List2", 0);
        return choix;
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        essai::OuvrirEssai(*dossier);
        essai::ReleverToutesOuvertures();
        new ecran::General();
        Preparer();
    }
    void cleanup() {
        ecran::FermerGeneral();
        ecran::FixerReleve({});
        FermerBase();
        dossier.reset();
    }

    void ouverture_listeLesSocietesEtChoisitLaPremiere() {
        auto choix = essai::MontrerChoix();
        QCOMPARE(choix->objectName(), QStringLiteral("Societe"));
        QCOMPARE(choix->windowTitle(), QStringLiteral("Choix Comptabilité"));
        QCOMPARE(essai::Lignes(choix.get(), "List1"),
                 QStringList({"Boulangerie Martin", "Garage Dupont"}));
        auto* liste = choix->findChild<QListWidget*>("List1");
        QCOMPARE(liste->item(1)->data(Qt::UserRole).toInt(), martin + 1);
        QCOMPARE(liste->currentRow(), 0);
        QVERIFY(!session().AucuneSociete);
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void exercices_duPlusRecentAuPlusAncienAvecLeurEtat() {
        auto choix = essai::MontrerChoix();
        ChoisirLigneListe(choix.get(), "List1", 0);
        QCOMPARE(essai::Lignes(choix.get(), "List2"),
                 QStringList({"Exercice 2024 (Ouvert)", "Exercice 2023 (Clos)"}));
        QCOMPARE(choix->findChild<QListWidget*>("List2")->item(1)->data(Qt::UserRole).toInt(),
                 2023);
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), ui::DateVide());
        ChoisirLigneListe(choix.get(), "List1", 1);
        QVERIFY(essai::Lignes(choix.get(), "List2").isEmpty());
    }

    void choixExercice_montreLaDateDeSaisieEtLaGarde() {
        auto choix = ChoixMartin2024();
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), QStringLiteral("15/03/2024"));
        QCOMPARE(choix->DateAncienne(), QStringLiteral("15/03/2024"));
        ChoisirLigneListe(choix.get(), "List2", 1);
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), QStringLiteral("01/01/2023"));
    }

    void valider_sansSociete_demandeDeChoisirOuCreer() {
        auto choix = essai::MontrerChoix();
        choix->findChild<QListWidget*>("List1")->clearSelection();
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Commencez par sélectionner ou créer une comptabilité."}));
        QVERIFY(choix->isVisible());
    }

    void valider_societeSansExercice_demandeLExercice() {
        auto choix = essai::MontrerChoix();
        ChoisirLigneListe(choix.get(), "List1", 1);
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(essai::TextesBoites(), QStringList({"N'oubliez pas de sélectionner l'exercice."}));
        QCOMPARE(int(session().NumSocCourante), martin + 1);
        QVERIFY(choix->isVisible());
    }

    void valider_dateMalSaisie_refuseeEtFocusSurLaDate() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "3102");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(essai::TextesBoites(), QStringList({"La date a été mal saisie."}));
        QVERIFY(choix->isVisible());
        QCOMPARE(choix->focusWidget()->objectName(), QStringLiteral("DateTrav"));
        // Les libellés de l'écran principal sont déjà écrits, la date n'est pas gardée.
        QCOMPARE(ecran::General::Instance()->Libelle("LBSociete"),
                 QStringLiteral("Boulangerie Martin"));
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).DateSaisie.trimmed(),
                 QStringLiteral("20240315"));
    }

    void valider_dateApresLaFin_refusee() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "01012025");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Interdit: votre date de saisie dépasse la fin de l'exercice."}));
        QVERIFY(choix->isVisible());
    }

    void valider_dateEgaleALaFin_acceptee() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "31122024");
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Maroval : Conseil"));
        QVERIFY(!choix->isVisible());
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).DateSaisie.trimmed(),
                 QStringLiteral("20241231"));
    }

    void valider_dateAnterieureALaPrecedente_refusee() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "14032024");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Interdit: votre date de saisie est antérieure à la précédente."}));
        QVERIFY(choix->isVisible());
    }

    void valider_changementDeMois_nonArreteSansRienEcrire() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "02042024");
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal& b = ui::JournalBoites()[0];
        QCOMPARE(b.titre, QStringLiteral("Maroval : Conseil"));
        QCOMPARE(b.texte, QStringLiteral("Vous êtes en train de changer de mois de saisie.\n"
                                         "Il serait bon de penser à faire une sauvegarde.\n"
                                         "Confirmez-vous cette nouvelle date de saisie ?"));
        QCOMPARE(b.boutons, ui::Boutons::OuiNon);
        QVERIFY(choix->isVisible());
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).DateSaisie.trimmed(),
                 QStringLiteral("20240315"));
    }

    void valider_memeMoisAutreJour_sansQuestionEcritLaDate() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "20032024");
        CliquerBouton(choix.get(), "Command4");
        QVERIFY(ui::JournalBoites().isEmpty());
        QVERIFY(!choix->isVisible());
        QCOMPARE(choix->result(), int(QDialog::Accepted));
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).DateSaisie.trimmed(),
                 QStringLiteral("20240320"));
    }

    void valider_memeDate_nonArrete() {
        auto choix = ChoixMartin2024();
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal& b = ui::JournalBoites()[0];
        QCOMPARE(b.titre, QStringLiteral("Maroval : Confirmation "));
        QCOMPARE(b.texte, QStringLiteral("Vous n'avez pas modifié la date de saisie. Etes-vous "
                                         "sûr(e) de vouloir continuer ?"));
        QCOMPARE(b.boutons, ui::Boutons::OuiNonAnnuler);
        QVERIFY(choix->isVisible());
        QCOMPARE(ecran::General::Instance()->Libelle("LBExercice"), QString());
    }

    void valider_memeDate_annulerContinueCommeOui() {
        auto choix = ChoixMartin2024();
        ui::RepondreBoite(ui::Reponse::Annuler);
        CliquerBouton(choix.get(), "Command4");
        QVERIFY(!choix->isVisible());
        QCOMPARE(ecran::General::Instance()->Libelle("LBExercice"), QStringLiteral("2024"));
    }

    void valider_reussi_remplitSessionEcranPrincipalEtReglages() {
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "16032024");
        CliquerBouton(choix.get(), "Command4");
        QVERIFY(ui::JournalBoites().isEmpty());
        const Session& s = session();
        QCOMPARE(int(s.NumSocCourante), martin);
        QCOMPARE(int(s.ExerciceCourant), 2024);
        QCOMPARE(s.DateSaisieCourante, QStringLiteral("16/03/2024"));
        QCOMPARE(s.NomSocCourante, QStringLiteral("Boulangerie Martin"));
        QCOMPARE(int(s.MoisDebutExercice), 10);
        QCOMPARE(s.MonnaieExercice, QStringLiteral("€"));
        ecran::General* g = ecran::General::Instance();
        QCOMPARE(g->Libelle("LBSociete"), QStringLiteral("Boulangerie Martin"));
        QCOMPARE(g->Libelle("LBExercice"), QStringLiteral("2024"));
        QCOMPARE(g->Libelle("LBDateExo"), QStringLiteral("01/01/2024 au 31/12/2024"));
        QCOMPARE(g->Libelle("LBDateSaisie"), QStringLiteral("16/03/2024"));
        QCOMPARE(LireReglage("Societe", "Societe"), QString::number(martin));
        QCOMPARE(LireReglage("Societe", "Exercice"), QStringLiteral("2024"));
        QCOMPARE(LireReglage("Societe", "DateTrav"), QStringLiteral("16/03/2024"));
        QVERIFY(essai::EcransOuverts().isEmpty());
    }

    void monnaieIndefinie_ouiDonneLeFranc() {
        Base().exec("UPDATE Constante SET SymboleMon='X'");
        auto choix = ChoixMartin2024();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("ATTENTION"));
        QCOMPARE(
            ui::JournalBoites()[0].texte,
            QStringLiteral("La monnaie de l'exercice que vous venez de restaurer est indéfinie.\n"
                           "Vous devez choisir entre les Francs ou les Euros\n"
                           "Si vous cliquez OUI la monnaie de votre exercice sera le Franc\n"
                           "Si vous cliquez NON la monnaie de votre exercice sera l'Euro"));
        QCOMPARE(ui::JournalBoites()[0].boutons, ui::Boutons::OuiNonAnnuler);
        QCOMPARE(session().MonnaieExercice, QStringLiteral("F"));
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).SymboleMon.trimmed(),
                 QStringLiteral("F"));
    }

    void monnaieIndefinie_nonDonneLEuro_annulerArrete() {
        Base().exec("UPDATE Constante SET SymboleMon='X'");
        auto choix = ChoixMartin2024();
        ui::RepondreBoite(ui::Reponse::Annuler);
        CliquerBouton(choix.get(), "Command4");
        QVERIFY(choix->isVisible());
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).SymboleMon.trimmed(),
                 QStringLiteral("X"));
        ui::RepondreBoite(ui::Reponse::Non);
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(choix.get(), "Command4");
        QCOMPARE(session().MonnaieExercice, QStringLiteral("E"));
        QCOMPARE(essai::Constante(CleExercice(martin, 2024)).SymboleMon.trimmed(),
                 QStringLiteral("E"));
        QVERIFY(!choix->isVisible());
    }

    void modeMiseAuPoint_leChoixDeLExerciceValideSansQuestion() {
        session().ModeDebug = true;
        auto choix = ChoixMartin2024();
        QVERIFY(ui::JournalBoites().isEmpty());
        QVERIFY(!choix->isVisible());
        QCOMPARE(int(session().ExerciceCourant), 2024);
        QCOMPARE(ecran::General::Instance()->Libelle("LBExercice"), QStringLiteral("2024"));
    }

    void toucheEntree_passeDeListeEnListePuisValide() {
        auto choix = essai::MontrerChoix();
        auto* liste1 = choix->findChild<QListWidget*>("List1");
        liste1->setFocus();
        QTest::keyClick(liste1, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("List2"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), QStringLiteral("15/03/2024"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), QStringLiteral("01/01/2023"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("DateTrav"));
        TaperCaracteres(QApplication::focusWidget(), "18");
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), QStringLiteral("18/03/2024"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
        QVERIFY(!choix->isVisible());
        QCOMPARE(session().DateSaisieCourante, QStringLiteral("18/03/2024"));
    }

    void preselection_reprendLeDernierChoixEtValide() {
        EcrireReglage("Options", "Demarrage", "1");
        EcrireReglage("Societe", "Societe", QString::number(martin));
        EcrireReglage("Societe", "Exercice", "2023");
        EcrireReglage("Societe", "DateTrav", "31/12/2023");
        ui::RepondreBoite(ui::Reponse::Oui);
        auto choix = essai::MontrerChoix();
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Maroval : Conseil"));
        QVERIFY(!choix->isVisible());
        QCOMPARE(int(session().ExerciceCourant), 2023);
        QCOMPARE(session().DateSaisieCourante, QStringLiteral("31/12/2023"));
    }

    void preselection_exerciceDisparu_neValidePasSansExercice() {
        EcrireReglage("Options", "Demarrage", "1");
        EcrireReglage("Societe", "Societe", QString::number(martin));
        EcrireReglage("Societe", "Exercice", "2019");
        ui::RepondreBoite(ui::Reponse::OK);
        auto choix = essai::MontrerChoix();
        QCOMPARE(essai::TextesBoites(), QStringList({"N'oubliez pas de sélectionner l'exercice."}));
        QVERIFY(choix->isVisible());
    }

    void preselectionInactive_rienNEstValide() {
        EcrireReglage("Societe", "Societe", QString::number(martin));
        EcrireReglage("Societe", "Exercice", "2024");
        auto choix = essai::MontrerChoix();
        QVERIFY(choix->isVisible());
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(TexteChamp(choix.get(), "DateTrav"), ui::DateVide());
    }

    void ligneDeCommandeSav_ouvreLaSauvegardeApresLeChoix() {
        session().LigneCommande = QStringLiteral("\"/tmp/maroval31-12-2024-09h05.sav\"");
        auto choix = ChoixMartin2024();
        TaperTexte(choix.get(), "DateTrav", "16032024");
        CliquerBouton(choix.get(), "Command4");
        QVERIFY(!choix->isVisible());
        QCOMPARE(essai::EcransOuverts(), QStringList({"Backup"}));
    }

    void aides_contextes4et20() {
        auto choix = essai::MontrerChoix();
        CliquerBouton(choix.get(), "Command6");
        CliquerBouton(choix.get(), "Command7");
        QCOMPARE(ui::JournalDialogues().size(), 2);
        QCOMPARE(ui::JournalDialogues()[0].dialogue, ui::Dialogue::Aide);
        QCOMPARE(ui::JournalDialogues()[0].detail, QStringLiteral("4"));
        QVERIFY(ui::JournalDialogues()[0].accepte);
        QCOMPARE(ui::JournalDialogues()[1].detail, QStringLiteral("20"));
        QVERIFY(ui::JournalDialogues()[1].accepte);
    }

    void quitter_termineLeProgramme() {
        auto choix = essai::MontrerChoix();
        CliquerBouton(choix.get(), "Command5");
        QVERIFY(ui::FinDemandee());
    }

    void sansChoix_echapNeFermePas_fermerQuitte() {
        auto choix = essai::MontrerChoix();
        QTest::keyClick(choix.get(), Qt::Key_Escape);
        QVERIFY(choix->isVisible());
        QVERIFY(!ui::FinDemandee());
        choix->close();
        QVERIFY(ui::FinDemandee());
    }

    void avecChoixEnCours_fermerRevientSansQuitter() {
        session().NumSocCourante = static_cast<std::int16_t>(martin);
        session().ExerciceCourant = 2024;
        auto choix = essai::MontrerChoix();
        choix->close();
        QVERIFY(!choix->isVisible());
        QVERIFY(!ui::FinDemandee());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSocieteChoix t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_societe_choix.moc"
