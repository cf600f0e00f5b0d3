// Porte des données de la saisie, sans écran : numéro suivant, comptes offerts par classes
// ou sauf quelques numéros, lignes de wSaisie, montants et sens, rappels, passage.
#include "support/DonneesReference.h"
#include "support/ExerciceEssai.h"

#include "chart/GestionPlan.h"
#include "entry/DonneesSaisie.h"
#include "posting/Verification.h"
#include "ui/Application.h"

#include <QtTest>

using namespace essai;

namespace {

QStringList Numeros(const std::vector<saisie::CompteOffert>& comptes) {
    QStringList n;
    for (const auto& c : comptes)
        n << c.numero;
    return n;
}

QStringList NumerosDeSaisie() {
    QStringList n;
    for (const saisie::Ligne& l : saisie::LireLignes())
        n << l.s.wNumCpt.trimmed();
    return n;
}

// Ligne de wSaisie du compte, avec un montant et les marques d'une case.
void Ligne(const QString& numero, double wNumEcrt, Montant montant = Montant(),
           bool rappel = false) {
    table::Saisie s = saisie::LigneDuCompteChoisi(LireCpt(numero), wNumEcrt, "V");
    s.wMntEcr = montant;
    s.wRappel = rappel;
    saisie::AjouterLigne(s);
}

} // namespace

class TestDonneesSaisie : public QObject {
    Q_OBJECT
    // Aucune boîte ne doit venir : la garde le vérifie à la fin de chaque essai.
    CadreEssai cadre;

private slots:
    void init() {
        cadre.Ouvrir();
        for (const auto& [n, l] : QList<QPair<QString, QString>>{{"411", "Clients"},
                                                                 {"401", "Fournisseurs"},
                                                                 {"512", "Banque"},
                                                                 {"607", "Achats"},
                                                                 {"707", "Ventes"},
                                                                 {"44571", "TVA collectée"},
                                                                 {"677", "Pertes de change"}})
            Compte(n, l);
        AssurerComptesFixes(Cle);
    }
    void cleanup() { cadre.Fermer(); }

    void entete_numeroSuivantEtDateDeSaisie() {
        QCOMPARE(saisie::LireEntete().numero, QStringLiteral("1"));
        QCOMPARE(saisie::LireEntete().dateSaisie, Constante().DateSaisie);
        Passer("15/03/2024", {{"512", "D", Euros(100)}, {"707", "C", Euros(100)}});
        Passer("16/03/2024", {{"607", "D", Euros(30)}, {"512", "C", Euros(30)}});
        QCOMPARE(saisie::LireEntete().numero, QStringLiteral("5"));
        // Le plus grand numéro des livres l'emporte sur un compteur en retard.
        Executer("UPDATE Constante SET LastNumEcrit=1");
        QCOMPARE(saisie::LireEntete().numero, QStringLiteral("5"));
    }

    void comptesDesClasses_commeLaRequeteDuChoixDesComptes() {
        CopierPlan("0001");
        int cases = 0;
        for (const table::Tableau& t : LignesTableau()) {
            if (ToutLePlan(t)) continue;
            QStringList attendus = ComptesProposes(t);
            attendus.sort();
            QStringList lus = Numeros(saisie::ComptesDesClasses(saisie::ClassesDeLaCase(t)));
            lus.sort();
            QCOMPARE(lus, attendus);
            ++cases;
        }
        QVERIFY(cases > 30);
    }

    void comptesDesClasses_aucuneClasseAucunCompte() {
        QVERIFY(saisie::ComptesDesClasses({}).empty());
    }

    void comptesSauf_parNumeroSansLesExclus() {
        const QStringList tous = Numeros(saisie::ComptesSauf({}));
        const QStringList sauf = Numeros(saisie::ComptesSauf({"400", "410", "699", "799"}));
        QVERIFY(tous.contains("400") && tous.contains("799"));
        for (const char* n : {"400", "410", "699", "799"})
            QVERIFY(!sauf.contains(n));
        QCOMPARE(sauf.size(), tous.size() - 4);
        QStringList trie = sauf;
        trie.sort();
        QCOMPARE(sauf, trie);
        // Un guillemet dans une valeur ne casse pas la liste liée.
        QCOMPARE(saisie::ComptesSauf({"4\"1", "512"}).size(), tous.size() - 1);
    }

    void lignes_ajoutLectureEtRetraits() {
        Ligne("411", 1);
        Ligne("707", 2);
        Ligne("411", 3);
        QCOMPARE(saisie::NombreLignes(), 3);
        QCOMPARE(NumerosDeSaisie(), QStringList({"411", "707", "411"}));
        QVERIFY(saisie::LigneDuCompte("707").has_value());
        QVERIFY(!saisie::LigneDuCompte("512").has_value());
        const auto l = saisie::LireLigne(3, "411");
        QVERIFY(l.has_value());
        QCOMPARE(l->s.wNumEcrt, 3.0);
        QVERIFY(!saisie::LireLigne(3, "707").has_value());
        // Seule la première ligne du compte part.
        saisie::RetirerLigneCompte("411");
        QCOMPARE(NumerosDeSaisie(), QStringList({"707", "411"}));
        saisie::RetirerLigneNumero(2);
        QCOMPARE(NumerosDeSaisie(), QStringList({"411"}));
        saisie::Vider();
        QCOMPARE(saisie::NombreLignes(), 0);
    }

    void lignePreparee_porteLaMarqueDeLaCase() {
        table::Tableau t = CaseDeMenu("111");
        const table::Saisie s = saisie::LignePreparee(LireCpt("411"), t, 4, "111");
        QCOMPARE(s.wNumEcrt, 4.0);
        QCOMPARE(s.wJournal.trimmed(), t.tJournal.trimmed());
        QCOMPARE(s.wRappel, t.tRappel);
        QCOMPARE(s.wSigne, t.tSigne);
        QCOMPARE(s.wMenuLigne, QStringLiteral("111"));
        QCOMPARE(s.wMntEcr, Montant());
    }

    void ecrireMontant_datesSensEtMarquesRemisesAZero() {
        Ligne("411", 1);
        Executer("UPDATE wSaisie SET wDCEcr='C', wLettrage=1, wSectionEcr=3, wFin=1");
        const auto l = saisie::LireLigne(1);
        saisie::EcrireMontant(l->rowid,
                              {Euros(120), QString(), "15/03/2024", "14/03/2024", "15/04/2024"});
        table::Saisie s = *saisie::LigneDuCompte("411");
        QCOMPARE(s.wMntEcr, Euros(120));
        // Sans sens donné, celui de la ligne reste.
        QCOMPARE(s.wDCEcr.trimmed(), QStringLiteral("C"));
        QCOMPARE(s.wDateEcr.trimmed(), QStringLiteral("20240315"));
        QCOMPARE(s.wDatePiece.trimmed(), QStringLiteral("20240314"));
        QCOMPARE(s.wDateEcheance.trimmed(), QStringLiteral("20240415"));
        QCOMPARE(s.wMoisEcheance.trimmed(), QStringLiteral("04"));
        QVERIFY(!s.wLettrage && !s.wFin);
        QCOMPARE(s.wSectionEcr, 0.0);
        saisie::EcrireMontant(l->rowid, {Euros(5), "D", "15/03/2024", "15/03/2024", "__/__/____"});
        QCOMPARE(saisie::LigneDuCompte("411")->wDCEcr.trimmed(), QStringLiteral("D"));
    }

    void sensEtMontant_selonLeCoteDuCompte() {
        QCOMPARE(saisie::SensDuMontant("E1", Euros(10)), QStringLiteral("D"));
        QCOMPARE(saisie::SensDuMontant("E2", Euros(-10)), QStringLiteral("C"));
        QCOMPARE(saisie::SensDuMontant("R1", Euros(10)), QStringLiteral("C"));
        QCOMPARE(saisie::SensDuMontant("R2", Euros(-10)), QStringLiteral("D"));
        QCOMPARE(saisie::SensDuMontant("WW", Euros(10)), QString());
        QCOMPARE(saisie::MontantDuSens("E1", "C", Euros(10)), Euros(-10));
        QCOMPARE(saisie::MontantDuSens("E2", "D", Euros(10)), Euros(10));
        QCOMPARE(saisie::MontantDuSens("R1", "D", Euros(10)), Euros(-10));
        QCOMPARE(saisie::MontantDuSens("R2", "C", Euros(10)), Euros(10));
    }

    void sommerCotes_gaucheDroiteEtTousNuls() {
        Ligne("411", 1);
        Ligne("707", 2);
        QVERIFY(saisie::SommerCotes().tousNuls);
        Executer("UPDATE wSaisie SET wMntEcr=1200000 WHERE wNumCpt='411'");
        Executer("UPDATE wSaisie SET wMntEcr=1000000 WHERE wNumCpt='707'");
        const saisie::Cotes c = saisie::SommerCotes();
        QVERIFY(!c.tousNuls);
        QCOMPARE(c.gauche, Euros(120));
        QCOMPARE(c.droite, Euros(100));
    }

    void rappels_desCasesEtDuJournal() {
        Ligne("411", 1, Euros(120), true);
        Ligne("707", 2, Euros(100), false);
        Ligne("677", 3, Euros(1), true);
        saisie::GarderRappelsDesCases();
        QCOMPARE(NumerosDeSaisie(), QStringList({"411"}));
        QCOMPARE(saisie::LigneDuCompte("411")->wMntEcr, Montant());

        saisie::Vider();
        Ligne("411", 1, Euros(120));
        Ligne("707", 2, Euros(100));
        Ligne("44571", 3, Euros(20));
        saisie::GarderRappelsDuJournal("V");
        // Le client part, les ventes et la taxe restent, montants à zéro.
        QCOMPARE(NumerosDeSaisie(), QStringList({"707", "44571"}));
        QVERIFY(saisie::SommerCotes().tousNuls);

        saisie::Vider();
        Ligne("512", 1, Euros(10));
        Ligne("607", 2, Euros(10));
        saisie::GarderRappelsDuJournal("T");
        QCOMPARE(NumerosDeSaisie(), QStringList({"512"}));
    }

    void passer_leLibelleTelQueTapeEtLesLivresJustes() {
        session().DateSaisieCourante = QStringLiteral("15/03/2024");
        Ligne("411", 1);
        Ligne("707", 2);
        for (const auto& [n, sens] : QList<QPair<double, QString>>{{1, "D"}, {2, "C"}}) {
            const auto l = saisie::LireLigne(n);
            saisie::EcrireMontant(l->rowid, {saisie::MontantDuSens(l->s.wErEcr, sens, Euros(120)),
                                             sens, "15/03/2024", "15/03/2024", "__/__/____"});
        }
        saisie::Passer("1", QStringLiteral("  Facture \"Dupont\" l'été  "));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE LibEcr=?",
                         QStringLiteral("Facture \"Dupont\" l'été")),
                 2);
        QVERIFY(Verification());
        saisie::ChangerLibelle(2, 2, QStringLiteral("Nouveau libellé"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE LibEcr='Nouveau libellé'"), 1);
        QCOMPARE(Compter("SELECT NumEcr FROM Ecriture WHERE LibEcr='Nouveau libellé'"), 2);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestDonneesSaisie t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_donnees_saisie.moc"
