// Suppression des exercices et des sociétés depuis l'écran de choix : les questions selon
// les écritures et la clôture, ce qui est effacé, et la clé du plan type vidée.

#include "Essai.h"

#include "companies/General.h"
#include "companies/Societe.h"
#include "session/FichierProfil.h"
#include "store/Exercices.h"
#include "ui/Application.h"
#include "ui/ChampDate.h"

#include <QtTest>

using namespace support;

namespace {

const QString kQuestion = QStringLiteral("Etes-vous sûr de vouloir supprimer cet exercice ?");

// Une ligne dans chaque table rattachée à l'exercice.
void Remplir(int numSoc, int annee) {
    const QString cle = CleExercice(numSoc, annee);
    essai::AjouterComptes(cle, 2);
    for (const char* sql :
         {"INSERT INTO Budget (CleCpt, NumBud) VALUES (?, '601')",
          "INSERT INTO Ecriture (CleCpt, NumEcr, NumCptEcr) VALUES (?, 1, '601')",
          "INSERT INTO Section (CleCpt, NumSection, NomSection) VALUES (?, 1, 'Atelier')",
          "INSERT INTO Ventilation (CleCpt, NumVentil) VALUES (?, 1)"}) {
        SQLite::Statement q(Base(), sql);
        q.bind(1, cle.toStdString());
        q.exec();
    }
    SQLite::Statement q(Base(), "INSERT INTO Sauve (Societe, Exercice) VALUES (?, ?)");
    q.bind(1, numSoc);
    q.bind(2, annee);
    q.exec();
}

int Lignes(const QString& cle) {
    int n = 0;
    for (const char* table : {"Budget", "Compte", "Ecriture", "Section", "Ventilation"})
        n += essai::Compter(std::string("SELECT count(*) FROM ") + table + " WHERE CleCpt=?", cle);
    return n + essai::Compter("SELECT count(*) FROM Constante WHERE CleCon=?", cle);
}

int LignesSauve(int numSoc, int annee) {
    SQLite::Statement q(Base(), "SELECT count(*) FROM Sauve WHERE Societe=? AND Exercice=?");
    q.bind(1, numSoc);
    q.bind(2, annee);
    q.executeStep();
    return q.getColumn(0).getInt();
}

} // namespace

class TestSocieteSuppression : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;
    int martin = 0;

    std::unique_ptr<ecran::Societe> ChoisirExercice(int ligneExercice) {
        auto choix = essai::MontrerChoix();
        ChoisirLigneListe(choix.get(), "List1", 0);
        ChoisirLigneListe(choix.get(), "List2", ligneExercice);
        return choix;
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        essai::OuvrirEssai(*dossier);
        new ecran::General();
        martin = essai::Societe(QStringLiteral("Boulangerie Martin"));
    }
    void cleanup() {
        ecran::FermerGeneral();
        FermerBase();
        dossier.reset();
    }

    void supprimerExercice_effaceToutEtRendLePlanSuivantPossible() {
        essai::Exercice precedent;
        precedent.debut = "20230101";
        precedent.fin = "20231231";
        essai::AjouterExercice(martin, 2023, precedent);
        Base().exec("UPDATE Constante SET NouveauPC=1");
        essai::AjouterAnnee(martin, 2024);
        Remplir(martin, 2023);
        Remplir(martin, 2024);
        const int autre = essai::Societe(QStringLiteral("Garage Dupont"));
        essai::AjouterAnnee(autre, 2024);
        Remplir(autre, 2024);

        SupprimerExercice(martin, 2024);
        QCOMPARE(Lignes(CleExercice(martin, 2024)), 0);
        QCOMPARE(LignesSauve(martin, 2024), 0);
        QVERIFY(!essai::Constante(CleExercice(martin, 2023)).NouveauPC);
        QCOMPARE(Lignes(CleExercice(martin, 2023)), 2 + 4 + 1);
        QCOMPARE(LignesSauve(martin, 2023), 1);
        QCOMPARE(Lignes(CleExercice(autre, 2024)), 2 + 4 + 1);
        QCOMPARE(LignesSauve(autre, 2024), 1);
    }

    void lireEtatExercice_ecrituresEtCloture() {
        essai::Exercice e;
        e.lastNumEcrit = 12;
        e.clos = true;
        essai::AjouterExercice(martin, 2024, e);
        double n = -1;
        bool clos = false;
        QVERIFY(LireEtatExercice(martin, 2024, n, clos));
        QCOMPARE(n, 12.0);
        QVERIFY(clos);
        QVERIFY(!LireEtatExercice(martin, 2030, n, clos));
        QCOMPARE(n, 0.0);
        QVERIFY(!clos);
    }

    void exerciceSansEcriture_uneQuestionNonParDefaut_nonGarde() {
        essai::AjouterAnnee(martin, 2024);
        auto choix = ChoisirExercice(0);
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal& b = ui::JournalBoites()[0];
        QCOMPARE(b.texte, QStringLiteral("Exercice 2024 (Ouvert)\n") + kQuestion);
        QCOMPARE(b.boutons, ui::Boutons::OuiNon);
        QCOMPARE(b.boutonParDefaut, 2);
        QCOMPARE(essai::Lignes(choix.get(), "List2"), QStringList({"Exercice 2024 (Ouvert)"}));
        QCOMPARE(Lignes(CleExercice(martin, 2024)), 1);
    }

    void exerciceSansEcriture_ouiSupprimeEtChoisitLeSuivant() {
        essai::AjouterAnnee(martin, 2023, "20231115");
        essai::AjouterAnnee(martin, 2024);
        auto choix = ChoisirExercice(0);
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(essai::Lignes(choix.get(), "List2"), QStringList({"Exercice 2023 (Ouvert)"}));
        QCOMPARE(choix->findChild<QListWidget*>("List2")->currentRow(), 0);
        QCOMPARE(essai::TexteChamp(choix.get(), "DateTrav"), QStringLiteral("15/11/2023"));
        QCOMPARE(Lignes(CleExercice(martin, 2024)), 0);
    }

    void exerciceAvecEcritures_deuxQuestions_nonALaPremiereGarde() {
        essai::Exercice e;
        e.lastNumEcrit = 37;
        essai::AjouterExercice(martin, 2024, e);
        auto choix = ChoisirExercice(0);
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(
            essai::TextesBoites(),
            QStringList({"Vous avez enregistré 37 écritures pour cet exercice.\n" + kQuestion}));
        QCOMPARE(Lignes(CleExercice(martin, 2024)), 1);
    }

    void exerciceAvecEcritures_dernierAvertissementNonParDefaut() {
        essai::Exercice e;
        e.lastNumEcrit = 37;
        essai::AjouterExercice(martin, 2024, e);
        Remplir(martin, 2024);
        auto choix = ChoisirExercice(0);
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(ui::JournalBoites().size(), 2);
        const ui::EntreeJournal& b = ui::JournalBoites()[1];
        QCOMPARE(b.titre, QStringLiteral("ATTENTION.. DERNIER AVERTISSEMENT"));
        QCOMPARE(b.texte,
                 QStringLiteral("Si vous répondez OUI, vous supprimerez 37 écritures ! ! !"));
        QCOMPARE(b.icone, ui::Icone::Critique);
        QCOMPARE(b.boutonParDefaut, 2);
        QVERIFY(Lignes(CleExercice(martin, 2024)) > 0);

        ui::ViderJournalBoites();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(ui::JournalBoites().size(), 2);
        QCOMPARE(Lignes(CleExercice(martin, 2024)), 0);
        QVERIFY(essai::Lignes(choix.get(), "List2").isEmpty());
        QCOMPARE(essai::TexteChamp(choix.get(), "DateTrav"), ui::DateVide());
    }

    void exerciceCloAvecEcritures_supprimeALaPremiereQuestion() {
        essai::Exercice e;
        e.lastNumEcrit = 250;
        e.clos = true;
        essai::AjouterExercice(martin, 2024, e);
        auto choix = ChoisirExercice(0);
        ui::RepondreBoite(ui::Reponse::Oui);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(essai::TextesBoites(), QStringList({"Exercice 2024 (Clos)\n" + kQuestion}));
        QCOMPARE(Lignes(CleExercice(martin, 2024)), 0);
    }

    void exercicesSansChoix_expliqueQuIlFautLesSupprimerDAbord() {
        essai::AjouterAnnee(martin, 2024);
        auto choix = essai::MontrerChoix();
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Avant de supprimer une société vous devez supprimer ses "
                              "exercices.\nSélectionnez l'exercice à supprimer et recommencez."}));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe"), 1);
    }

    void societeSansExercice_estSupprimeeEtLaClePlanChoisiDeLaSessionVidee() {
        const int dupont = essai::Societe(QStringLiteral("Garage Dupont"));
        essai::AjouterAnnee(martin, 2024);
        FichierProfil ini(CheminIni());
        QVERIFY(ini.Ecrire("Plans Types", "PlanChoisi" + QString::number(martin), "0102"));
        QVERIFY(ini.Ecrire("Plans Types", "PlanChoisi" + QString::number(dupont), "0304"));
        // Martin est la société de la session : c'est sa clé qui est vidée, non celle de la
        // supprimée.
        session().NumSocCourante = static_cast<std::int16_t>(martin);
        auto choix = essai::MontrerChoix();
        ChoisirLigneListe(choix.get(), "List1", 1);
        QVERIFY(essai::Lignes(choix.get(), "List2").isEmpty());
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(choix.get(), "Command3");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"La société \"Garage Dupont\" va maintenant être supprimée."}));
        QCOMPARE(essai::Lignes(choix.get(), "List1"), QStringList({"Boulangerie Martin"}));
        QCOMPARE(
            essai::Compter("SELECT count(*) FROM Societe WHERE NumSoc=" + std::to_string(dupont)),
            0);
        QCOMPARE(ini.Lire("Plans Types", "PlanChoisi" + QString::number(martin), "?"), QString());
        QCOMPARE(ini.Lire("Plans Types", "PlanChoisi" + QString::number(dupont), "?"),
                 QStringLiteral("0304"));
    }

    void sansSocieteChoisie_supprimerNeFaitRien() {
        auto choix = essai::MontrerChoix();
        choix->findChild<QListWidget*>("List1")->clearSelection();
        CliquerBouton(choix.get(), "Command3");
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe"), 1);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSocieteSuppression t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_societe_suppression.moc"
