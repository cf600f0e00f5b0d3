// Portes des données de la consultation, sans écran : lignes du journal dans les deux
// ordres, groupe d'une écriture, marques de fin ; comptes des balances et des rubriques du
// bilan et du compte de résultat.
#include "support/ExerciceEssai.h"

#include "base/Montant.h"
#include "chart/GestionPlan.h"
#include "consultation/DonneesComptes.h"
#include "consultation/DonneesJournal.h"
#include "ui/Application.h"

#include <QtTest>

using namespace essai;

namespace {

QList<double> Numeros(const QString& code, bool decroissant) {
    QList<double> n;
    journal::LireLignes(code, decroissant, [&](const journal::Ligne& l) { n << l.numero; });
    return n;
}

QStringList NumerosComptes(const std::vector<comptes::Compte>& c) {
    QStringList n;
    for (const auto& compte : c)
        n << compte.numero;
    return n;
}

} // namespace

class TestDonneesConsultation : public QObject {
    Q_OBJECT
    // Aucune boîte ne doit venir : la garde le vérifie à la fin de chaque essai.
    CadreEssai cadre;

private slots:
    void init() {
        cadre.Ouvrir();
        for (const auto& [n, l] : QList<QPair<QString, QString>>{{"411DUP", "Dupont"},
                                                                 {"401MAR", "Martin"},
                                                                 {"512", "Banque"},
                                                                 {"607", "Achats"},
                                                                 {"707", "Ventes"},
                                                                 {"101", "Capital"}})
            Compte(n, l);
        AssurerComptesFixes(Cle);
        // Ecriture 1-2 (ventes), 3-5 (achats à trois lignes), 6-7 (trésorerie).
        Passer("10/03/2024", {{"411DUP", "D", Euros(120)}, {"707", "C", Euros(120)}}, "V");
        Passer("12/03/2024",
               {{"607", "D", Euros(50)}, {"607", "D", Euros(30)}, {"401MAR", "C", Euros(80)}}, "A");
        Passer("20/03/2024", {{"512", "D", Euros(120)}, {"411DUP", "C", Euros(120)}}, "T");
    }
    void cleanup() { cadre.Fermer(); }

    void journal_lignesDansLesDeuxOrdres() {
        QCOMPARE(journal::NombreLignes("*"), 7);
        QCOMPARE(journal::NombreLignes("A"), 3);
        QCOMPARE(journal::NombreLignes("I"), 0);
        QCOMPARE(Numeros("*", false), QList<double>({1, 2, 3, 4, 5, 6, 7}));
        QCOMPARE(Numeros("*", true), QList<double>({7, 6, 5, 4, 3, 2, 1}));
        QCOMPARE(Numeros("A", false), QList<double>({3, 4, 5}));
    }

    void journal_champsDUneLigne() {
        QList<journal::Ligne> lignes;
        journal::LireLignesDe(3, 5, [&](const journal::Ligne& l) { lignes << l; });
        QCOMPARE(lignes.size(), 3);
        QCOMPARE(lignes[0].compte, QStringLiteral("607"));
        QCOMPARE(lignes[0].dateEcr, QStringLiteral("20240312"));
        QCOMPARE(lignes[0].journal, QStringLiteral("A"));
        QVERIFY(lignes[0].debit);
        QCOMPARE(lignes[0].montant, Euros(50));
        QVERIFY(!lignes[0].fin && !lignes[1].fin && lignes[2].fin);
        QVERIFY(!lignes[2].debit);
        QCOMPARE(
            journal::Textes(lignes[2], "80,00 E"),
            QStringList({"5", "12/03/2024", "12/03/2024", "Essai", "401MAR", "", "80,00 E", "A"}));
        QCOMPARE(journal::Textes(lignes[0], "50,00 E")[5], QStringLiteral("50,00 E"));
    }

    void journal_marquesDeFin() {
        QVERIFY(!journal::MarqueFin(3));
        QVERIFY(journal::MarqueFin(5));
        // Un numéro sans ligne arrête la recherche d'un groupe comme une fin.
        QVERIFY(journal::MarqueFin(99));
        QCOMPARE(journal::Titres().size(), 8);
        QCOMPARE(journal::Titres("Journal").last(), QStringLiteral("Journal"));
        QVERIFY(journal::Titres().last().isEmpty());
    }

    void balances_tiersEtComptesGeneraux() {
        const QStringList clients = NumerosComptes(comptes::DeLaBalance(comptes::Portee::Clients));
        const QStringList fournisseurs =
            NumerosComptes(comptes::DeLaBalance(comptes::Portee::Fournisseurs));
        const QStringList generale =
            NumerosComptes(comptes::DeLaBalance(comptes::Portee::Generale));
        QCOMPARE(clients, QStringList({"411DUP"}));
        QCOMPARE(fournisseurs, QStringList({"401MAR"}));
        QVERIFY(generale.contains("512") && generale.contains("707"));
        QVERIFY(!generale.contains("411DUP") && !generale.contains("401MAR"));
        QStringList trie = generale;
        trie.sort();
        QCOMPARE(generale, trie);
        const comptes::Compte achats = [] {
            for (const auto& c : comptes::DeLaBalance(comptes::Portee::Generale))
                if (c.numero == QLatin1String("607")) return c;
            return comptes::Compte{};
        }();
        QCOMPARE(achats.cumD, Euros(80));
        QCOMPARE(achats.solde, Euros(80));
        QCOMPARE(achats.erCpt, QStringLiteral("E2"));
    }

    void rubriques_etSommesDesSoldes() {
        const QStringList actif = NumerosComptes(comptes::DeLaRubrique(comptes::Rubrique::Actif));
        QVERIFY(actif.contains("512"));
        QVERIFY(!actif.contains("411DUP"));
        QVERIFY(NumerosComptes(comptes::DeLaRubrique(comptes::Rubrique::Produits)).contains("707"));
        Montant charges;
        for (const auto& c : comptes::DeLaRubrique(comptes::Rubrique::Charges))
            charges += c.solde;
        QCOMPARE(charges, Euros(80));
        QCOMPARE(comptes::SommeSoldes(comptes::Rubrique::Charges), charges);
        QCOMPARE(comptes::SommeSoldes(comptes::Rubrique::Produits), Euros(120));
        QCOMPARE(NumerosComptes(comptes::ParCreation()).first(), QStringLiteral("411DUP"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestDonneesConsultation t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_donnees_consultation.moc"
