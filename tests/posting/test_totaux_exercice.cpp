// Cumuls tenus par une écriture : compte, collectif, budget et totaux de l'exercice, au
// centime, recalculés ici depuis les lignes d'Ecriture.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"
#include "support/Recalcul.h"

#include "posting/Filtre.h"
#include "posting/Verification.h"
#include "ui/Application.h"

#include <QtTest>

using namespace essai;

class TestTotauxExercice : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    Depart depart;

    table::Compte Compte(const char* numero) {
        table::Compte c;
        LireCompte(Cle, numero, c);
        return c;
    }
    table::Constante Constante() {
        table::Constante k;
        LireConstante(Cle, k);
        return k;
    }
    void VerifierRecalcul() {
        const QString ecarts = EcartsAvecRecalcul(depart);
        QVERIFY2(ecarts.isEmpty(), qPrintable(ecarts));
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
        depart = Photographier();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void venteCompteCollectifBudgetEtConstante() {
        Vente(Euros(1000), Euros(200));
        const table::Compte client = Compte("411001");
        QCOMPARE(client.CumD, Euros(1200));
        QCOMPARE(client.CumDM[3], Euros(1200));
        QCOMPARE(client.Solde, Euros(1200));
        // Le collectif des clients porte le même mouvement.
        const table::Compte collectif = Compte("410");
        QCOMPARE(collectif.CumD, Euros(1200));
        QCOMPARE(collectif.Solde, Euros(1200));
        QCOMPARE(Compte("400").CumD, Montant());
        const table::Compte ventes = Compte("707");
        QCOMPARE(ventes.CumC, Euros(1000));
        QCOMPARE(ventes.CumCM[3], Euros(1000));
        // Le réel du budget d'un produit crédité est positif.
        table::Budget b;
        QVERIFY(LireBudget(Cle, "707", b));
        QCOMPARE(b.Reel, Euros(1000));
        QCOMPARE(b.ReelM[3], Euros(1000));
        const table::Constante k = Constante();
        QCOMPARE(k.TDJG, Euros(1200));
        QCOMPARE(k.TCJG, Euros(1200));
        QCOMPARE(k.TDJV, Euros(1200));
        QCOMPARE(k.TCJVM[3], Euros(1200));
        QCOMPARE(k.E1, Euros(1200));
        QCOMPARE(k.R1, Euros(200));
        QCOMPARE(k.R2, Euros(1000));
        QCOMPARE(k.DAR, Euros(1200));
        QCOMPARE(k.DAP, Euros(200));
        QCOMPARE(k.ACTI, Euros(1000));
        QCOMPARE(k.Resultat, Euros(1000));
        QCOMPARE(k.LastNumEcrit, 3.0);
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void debitSurUnCompteR1FaitBaisserCumDEtSolde() {
        ViderSaisie();
        Saisir("44571", "D", Euros(80), "D");
        Saisir("512", "C", Euros(80), "D");
        const table::Compte tva = Compte("44571");
        QCOMPARE(tva.CumD, Montant());
        essai::Passer();
        const table::Compte apres = Compte("44571");
        QCOMPARE(apres.CumD, -Euros(80));
        QCOMPARE(apres.Solde, -Euros(80));
        QCOMPARE(apres.CumDM[3], -Euros(80));
        const table::Constante k = Constante();
        QCOMPARE(k.TDJG, Euros(80));
        QCOMPARE(k.TDJD, Euros(80));
        QCOMPARE(k.R1, -Euros(80));
        QCOMPARE(k.E1, -Euros(80));
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void creditSurUnCompteDeChargeFaitBaisserCumC() {
        ViderSaisie();
        Saisir("512", "D", Euros(15), "A");
        Saisir("607", "C", Euros(15), "A");
        essai::Passer();
        QCOMPARE(Compte("607").CumC, -Euros(15));
        table::Budget b;
        LireBudget(Cle, "607", b);
        QCOMPARE(b.Reel, -Euros(15));
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void fournisseurAussiPorteSur400() {
        ViderSaisie();
        Saisir("607", "D", Euros(500), "A");
        Saisir("44566", "D", Euros(100), "A");
        Saisir("401001", "C", Euros(600), "A");
        essai::Passer();
        QCOMPARE(Compte("401001").CumC, Euros(600));
        QCOMPARE(Compte("400").CumC, Euros(600));
        QCOMPARE(Compte("400").CumCM[3], Euros(600));
        QCOMPARE(Compte("410").CumC, Montant());
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void ligneSur400AvecUnAutreMenuSansCollectif() {
        ViderSaisie();
        Saisir("400", "C", Euros(40), "A");
        Saisir("607", "D", Euros(40), "A");
        essai::Passer();
        // 400 ne porte que sa propre ligne, une seule fois.
        QCOMPARE(Compte("400").CumC, Euros(40));
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void ligneSur400MarqueeFournisseurPorteDeuxFois() {
        ViderSaisie();
        table::Saisie s = Ligne("400", "C", Euros(40), "A");
        s.wMenu = 160;
        AjouterSaisie(s);
        Saisir("607", "D", Euros(40), "A");
        essai::Passer();
        // C'est le Menu de la ligne qui décide du collectif, pas le numéro.
        QCOMPARE(Compte("400").CumC, Euros(80));
    }

    void lignesSur699Et799SansBudget() {
        ViderSaisie();
        Saisir("699", "D", Euros(300), "I");
        Saisir("799", "C", Euros(300), "I");
        essai::Passer();
        QCOMPARE(Compte("699").CumD, Euros(300));
        QCOMPARE(Compte("799").CumC, Euros(300));
        QCOMPARE(Compter("SELECT count(*) FROM Budget WHERE NumBud IN ('699','799')"), 0);
        QCOMPARE(Constante().TDJI, Euros(300));
        VerifierRecalcul();
        // Les deux comptes de résultat à la fois : aucun des trois totaux ne les excuse.
        QVERIFY(!Verification());
    }

    void compteSous600SansBudget() {
        AssurerCompte(Cle, "599", "Sous 600", "", "");
        depart = Photographier();
        ViderSaisie();
        Saisir("599", "D", Euros(12), "D");
        Saisir("512", "C", Euros(12), "D");
        essai::Passer();
        QCOMPARE(Compter("SELECT count(*) FROM Budget WHERE NumBud='599'"), 0);
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void premiereLigneSurUnCompteDeChargeAvecSoldeOuvertureLeReelLInclut() {
        CompteSansBudget("6064", "Fournitures");
        SoldeOuverture("6064", Euros(25));
        depart = Photographier();
        ViderSaisie();
        Saisir("6064", "D", Euros(10), "A");
        Saisir("512", "C", Euros(10), "A");
        essai::Passer();
        table::Budget b;
        QVERIFY(LireBudget(Cle, "6064", b));
        QCOMPARE(b.ERBUD, QStringLiteral("E2"));
        QCOMPARE(b.LibBud.trimmed(), QStringLiteral("Fournitures"));
        QCOMPARE(b.Reel, Euros(35));
        QCOMPARE(b.ReelM[3], Euros(10));
        QCOMPARE(b.Budget, Montant());
        VerifierRecalcul();
        // Le réel du budget compte l'ouverture, les totaux E2 et R2 non : la vérification
        // le signale.
        QVERIFY(!Verification());
    }

    void budgetFaitParLEcritureSuitLeCompteMoisParMois() {
        CompteSansBudget("6064", "Fournitures");
        depart = Photographier();
        ViderSaisie();
        Saisir("6064", "D", Euros(10), "A");
        Saisir("6064", "D", Euros(7), "A");
        Saisir("512", "C", Euros(17), "A");
        essai::Passer();
        table::Budget b;
        QVERIFY(LireBudget(Cle, "6064", b));
        QCOMPARE(b.Reel, Euros(17));
        QCOMPARE(b.ReelM[3], Euros(17));
        QCOMPARE(Compter("SELECT count(*) FROM Budget WHERE NumBud='6064'"), 1);
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void journalInconnuSeulementAuGeneral() {
        ViderSaisie();
        Saisir("512", "D", Euros(9), "Z");
        Saisir("707", "C", Euros(9), "Z");
        essai::Passer();
        const table::Constante k = Constante();
        QCOMPARE(k.TDJG, Euros(9));
        QCOMPARE(k.TDJV + k.TDJA + k.TDJT + k.TDJD + k.TDJI, Montant());
        // Les cinq journaux ne font plus le général : la vérification le voit.
        QVERIFY(!Verification());
    }

    void resultatRecalculeEtOuvertureIntacte() {
        SoldeOuverture("512", Euros(5000));
        SoldeOuverture("101", Euros(5000));
        depart = Photographier();
        Vente(Euros(1000), Euros(200));
        ViderSaisie();
        Saisir("607", "D", Euros(400), "A");
        Saisir("512", "C", Euros(400), "A");
        essai::Passer();
        const table::Constante k = Constante();
        QCOMPARE(k.Resultat, Euros(600));
        QCOMPARE(k.SDE1, Euros(5000));
        QCOMPARE(k.SDR1, Euros(5000));
        QCOMPARE(Compte("512").Solde, Euros(4600));
        VerifierRecalcul();
        QVERIFY(Verification());
    }

    void plusieursMoisChacunSaCase() {
        for (const char* date : {"10/01/2024", "05/02/2024", "31/12/2024"}) {
            session().DateSaisieCourante = QString::fromLatin1(date);
            Vente(Euros(10), Euros(2));
        }
        const table::Constante k = Constante();
        QCOMPARE(k.TDJGM[1], Euros(12));
        QCOMPARE(k.TDJGM[2], Euros(12));
        QCOMPARE(k.TDJGM[12], Euros(12));
        QCOMPARE(k.TDJG, Euros(36));
        VerifierRecalcul();
        QVERIFY(Verification());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestTotauxExercice t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_totaux_exercice.moc"
