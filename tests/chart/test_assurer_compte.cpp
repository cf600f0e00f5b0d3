// Règles de numérotation : lecture de filtre par plage, création d'un compte et de son
// budget par AssurerCompte, fonction d'un compte par LireMenuCompte. Les plages sont
// posées par l'essai lui-même.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "posting/Filtre.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QtTest>

using namespace essai;

class TestAssurerCompte : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

    table::Compte Compte(const QString& numero) {
        table::Compte c;
        LireCompte(Cle, numero, c);
        return c;
    }
    bool ABudget(const QString& numero) {
        table::Budget b;
        return LireBudget(Cle, numero, b);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        session().DossierDonnees = dossier->Chemin();
        session().NumSocCourante = 1;
        session().ExerciceCourant = 2024;
        OuvrirBase(dossier->Chemin());
        PoserFiltre({
            {"101", "101ZZZZZ", "Capital", "R1", "SN", "0", "10"},
            {"400", "400", "Fournisseurs collectif", "R1", "DAP", "0", "155"},
            {"4000", "400ZZZZZ", "Fournisseurs (compte individuel)", "R1", "DAP", "1", "160"},
            {"410", "410", "Clients collectif", "E1", "DAR", "0", "165"},
            {"4100", "410ZZZZZ", "Clients (compte individuel)", "E1", "DAR", "1", "170"},
            {"411", "411ZZZZZ", "Clients", "E1", "DAR", "1", "170"},
            {"41A", "41ZZZZZZ", "Clients par leur nom", "E1", "BIENS", "0", "99"},
            {"443", "443ZZZZZ", "Opérations particulières avec l'État", "WW", "", "0", "225"},
            {"512", "512ZZZZZ", "Banques", "E1", "MD", "0", "330"},
            {"599", "599ZZZZZ", "Essai sous 600", "E1", "BIENS", "0", "50"},
            {"600", "600ZZZZZ", "Achats", "E2", "CONS", "0", "400"},
            {"608", "608ZZZZZ", "Actif ou passif", "WW", "", "0", "401"},
            {"699", "699ZZZZZ", "Compte pour résultat positif", "E2", "CONS", "0", "525"},
            {"7000", "7000ZZZZ", "Ventes d'un chiffre", "R2", "ACTI", "0", "600"},
            {"799", "799ZZZZZ", "Compte pour résultat négatif", "R2", "ACTI", "0", "625"},
        });
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void lireFiltreRendLaPlageQuiCouvreLeNumero() {
        const table::Filtre f = LireFiltre("51200010");
        QCOMPARE(f.BorneInf.trimmed(), QStringLiteral("512"));
        QCOMPARE(f.Message.trimmed(), QStringLiteral("Banques"));
        QCOMPARE(f.ERCPT, QStringLiteral("E1"));
        QCOMPARE(f.Bilan.trimmed(), QStringLiteral("MD"));
        QCOMPARE(f.Tiers, false);
        QCOMPARE(f.Menu.trimmed(), QStringLiteral("330"));
    }

    void lireFiltreSansPlageRendUnEnregistrementVide() {
        const table::Filtre f = LireFiltre("90000000");
        QVERIFY(f.ERCPT.trimmed().isEmpty());
        QVERIFY(f.Message.trimmed().isEmpty());
        QVERIFY(f.Menu.trimmed().isEmpty());
    }

    void compteCreeAvecLesValeursDeFiltre() {
        QVERIFY(AssurerCompte(Cle, "411001", "Client Durand", "", ""));
        const table::Compte c = Compte("411001");
        QCOMPARE(c.CleCpt, Cle);
        QCOMPARE(c.NumCpt, QStringLiteral("411001  "));
        QCOMPARE(c.LibCpt.trimmed(), QStringLiteral("Client Durand"));
        QCOMPARE(c.LibCpt.size(), 40);
        QCOMPARE(c.ErCpt, QStringLiteral("E1"));
        QCOMPARE(c.Bilan.trimmed(), QStringLiteral("DAR"));
        QCOMPARE(c.Tiers, true);
        QCOMPARE(int(c.Menu), 170);
        QCOMPARE(c.Fisc, QStringLiteral("41"));
        QCOMPARE(c.Sde, Montant());
        QCOMPARE(c.Solde, Montant());
        for (int i = 1; i <= 12; ++i) {
            QCOMPARE(c.CumDM[i], Montant());
            QCOMPARE(c.CumCM[i], Montant());
        }
        QVERIFY(!ABudget("411001"));
    }

    void compteExistantRienNeChangeEtRendFaux() {
        QVERIFY(AssurerCompte(Cle, "512", "Banque Populaire", "", ""));
        QVERIFY(!AssurerCompte(Cle, "512", "Autre libellé", "R1", "DAP"));
        const table::Compte c = Compte("512");
        QCOMPARE(c.LibCpt.trimmed(), QStringLiteral("Banque Populaire"));
        QCOMPARE(c.ErCpt, QStringLiteral("E1"));
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE NumCpt='512'"), 1);
    }

    void memeNumeroDansUnAutreExerciceEstUnAutreCompte() {
        QVERIFY(AssurerCompte(Cle, "512", "Banque", "", ""));
        QVERIFY(AssurerCompte("012025", "512", "Banque", "", ""));
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE NumCpt='512'"), 2);
    }

    void budgetPour600PasPour599() {
        QVERIFY(AssurerCompte(Cle, "600", "Achats", "", ""));
        QVERIFY(AssurerCompte(Cle, "599", "Sous 600", "", ""));
        QVERIFY(ABudget("600"));
        QVERIFY(!ABudget("599"));
        table::Budget b;
        LireBudget(Cle, "600", b);
        QCOMPARE(b.LibBud.trimmed(), QStringLiteral("Achats"));
        QCOMPARE(b.ERBUD, QStringLiteral("E2"));
        QCOMPARE(b.Reel, Montant());
        QCOMPARE(b.Budget, Montant());
        QCOMPARE(b.BudFut, Montant());
        QCOMPARE(b.ReelA, Montant());
    }

    void niBudgetPour699NiPour799() {
        QVERIFY(AssurerCompte(Cle, "699", "Compte pour résultat positif", "", ""));
        QVERIFY(AssurerCompte(Cle, "799", "Compte pour résultat négatif", "", ""));
        QVERIFY(!ABudget("699"));
        QVERIFY(!ABudget("799"));
        QCOMPARE(int(Compte("699").Menu), 525);
        QCOMPARE(int(Compte("799").Menu), 625);
    }

    void numeroAvecLettresChercheParSaValeurNumerique() {
        // 41 suivi de lettres vaut 41 : la recherche se fait sur 4100, pas sur le texte.
        QVERIFY(AssurerCompte(Cle, "41DUPONT", "Dupont", "", ""));
        const table::Compte c = Compte("41DUPONT");
        QCOMPARE(int(c.Menu), 170);
        QCOMPARE(c.Tiers, true);
        QCOMPARE(c.Bilan.trimmed(), QStringLiteral("DAR"));
        QCOMPARE(c.Fisc, QStringLiteral("41"));
        QCOMPARE(LireFiltre("41DUPONT").Message.trimmed(), QStringLiteral("Clients par leur nom"));
    }

    void numeroCourtCompleteDeZeros() {
        QCOMPARE(CleFiltre("41"), QStringLiteral("4100"));
        QCOMPARE(CleFiltre("7"), QStringLiteral("7000"));
        QCOMPARE(CleFiltre("40DUPONT"), QStringLiteral("4000"));
        QCOMPARE(CleFiltre("401DUPON"), QStringLiteral("401DUPON"));
        QCOMPARE(CleFiltre("512"), QStringLiteral("512"));
        QVERIFY(AssurerCompte(Cle, "7", "Produits", "", ""));
        QCOMPARE(Compte("7").ErCpt, QStringLiteral("R2"));
        // Comparé comme un texte, "7" vient après "600" : il a son budget.
        QVERIFY(ABudget("7"));
    }

    void classeImposeeSurUnePlageWWLeBudgetGardeCelleDeFiltre() {
        QVERIFY(AssurerCompte(Cle, "6081", "Actif ou passif", "R1", "DAP"));
        const table::Compte c = Compte("6081");
        QCOMPARE(c.ErCpt, QStringLiteral("R1"));
        QCOMPARE(c.Bilan.trimmed(), QStringLiteral("DAP"));
        QCOMPARE(int(c.Menu), 401);
        table::Budget b;
        QVERIFY(LireBudget(Cle, "6081", b));
        QCOMPARE(b.ERBUD, QStringLiteral("WW"));
    }

    void classeImposeeSeulementQuandElleEstDonnee() {
        QVERIFY(AssurerCompte(Cle, "4431", "Etat", "E1", ""));
        const table::Compte c = Compte("4431");
        QCOMPARE(c.ErCpt, QStringLiteral("E1"));
        QVERIFY(c.Bilan.trimmed().isEmpty());
    }

    void plageAbsenteCompteSansClasseMenuZero() {
        QVERIFY(AssurerCompte(Cle, "90000000", "Hors plan", "", ""));
        const table::Compte c = Compte("90000000");
        QVERIFY(c.ErCpt.trimmed().isEmpty());
        QVERIFY(c.Bilan.trimmed().isEmpty());
        QCOMPARE(int(c.Menu), 0);
        QCOMPARE(c.Tiers, false);
    }

    void libelleEtNumeroCoupesALeurLargeur() {
        const QString long40 = QString(45, u'é');
        QVERIFY(AssurerCompte(Cle, "5120000123", long40, "", ""));
        const table::Compte c = Compte("51200001");
        QCOMPARE(c.NumCpt, QStringLiteral("51200001"));
        QCOMPARE(c.LibCpt, QString(40, u'é'));
    }

    void lireMenuCompteDansLExerciceOuvert() {
        QVERIFY(AssurerCompte(Cle, "512", "Banque", "", ""));
        QVERIFY(AssurerCompte("012025", "411", "Clients", "", ""));
        QCOMPARE(int(LireMenuCompte("512")), 330);
        QCOMPARE(int(LireMenuCompte(" 512 ")), 330);
        // Un compte d'un autre exercice, ou absent : 0.
        QCOMPARE(int(LireMenuCompte("411")), 0);
        QCOMPARE(int(LireMenuCompte("999")), 0);
    }
};

QTEST_GUILESS_MAIN(TestAssurerCompte)
#include "test_assurer_compte.moc"
