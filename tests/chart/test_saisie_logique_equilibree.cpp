// Chaque opération des menus livrés, saisie comme un utilisateur la saisit (un plan type
// copié, les comptes pris dans les cases, des montants tapés), donne une écriture juste
// et équilibrée : signe rectifié selon la case, débit ou crédit selon le côté du compte.

#include "support/DonneesReference.h"

#include "base/Montant.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QSet>
#include <QtTest>
#include <memory>

namespace {

using namespace essai;

struct Ligne {
    int case_;
    const char* compte;
    const char* tape; // montant tel qu'il est tapé
    char sens;        // débit ou crédit attendu
};

struct Scenario {
    const char* cle;
    const char* plan;
    const char* nom;
    QList<Ligne> lignes;
};

// Plans : 0001 commerce, 0002 services, 0003 artisanat, 0004 café-hôtel-restaurant,
// 0005 général simplifié.
const QList<Scenario>& Scenarios() {
    static const QList<Scenario> s = {
        {"11",
         "0001",
         "facture de vente à 20 % et 5,5 %",
         {{1, "7071", "1000", 'C'},
          {1, "7073", "200", 'C'},
          {2, "445711", "200", 'C'},
          {2, "445713", "11", 'C'},
          {3, "411", "1411", 'D'}}},
        {"11",
         "0001",
         "montants tapés avec le mauvais signe",
         {{1, "7071", "-500", 'C'}, {2, "445711", "-100", 'C'}, {3, "411", "600", 'D'}}},
        {"12",
         "0001",
         "avoir pour un retour",
         {{1, "7097", "100", 'D'}, {2, "445711", "20", 'D'}, {3, "411", "120", 'C'}}},
        {"13",
         "0005",
         "vente d'un véhicule",
         {{1, "775", "5000", 'C'}, {2, "44571", "1000", 'C'}, {3, "462", "6000", 'D'}}},
        {"21",
         "0001",
         "facture de marchandises et de port",
         {{1, "607", "1000", 'D'},
          {1, "6241", "50", 'D'},
          {2, "44566", "210", 'D'},
          {3, "401", "1260", 'C'}}},
        {"22",
         "0001",
         "avoir d'un fournisseur",
         {{1, "6097", "50", 'C'}, {2, "44566", "10", 'C'}, {3, "401", "60", 'D'}}},
        {"23",
         "0003",
         "achat d'une machine",
         {{1, "2154", "10000", 'D'}, {2, "44562", "2000", 'D'}, {3, "404", "12000", 'C'}}},
        {"24",
         "0005",
         "achat dans l'Union européenne",
         {{1, "607", "1000", 'D'},
          {2, "44566", "200", 'D'},
          {2, "4452", "200", 'C'},
          {3, "401", "1000", 'C'}}},
        {"31", "0001", "chèque d'un client", {{1, "5112", "1200", 'D'}, {2, "411", "1200", 'C'}}},
        {"32",
         "0003",
         "virement à un fournisseur",
         {{1, "512", "1200", 'C'}, {2, "401", "1200", 'D'}}},
        {"33",
         "0004",
         "recette du jour",
         {{1, "531", "1205,50", 'D'},
          {2, "7061", "1000", 'C'},
          {2, "7062", "100", 'C'},
          {3, "445712", "100", 'C'},
          {3, "445713", "5.50", 'C'}}},
        {"34",
         "0002",
         "facture de téléphone prélevée",
         {{1, "512", "120", 'C'}, {2, "6262", "100", 'D'}, {3, "44566", "20", 'D'}}},
        {"35", "0001", "retrait d'espèces", {{1, "531", "500", 'D'}, {2, "512", "500", 'C'}}},
        {"35", "0001", "remise de chèques", {{1, "512", "800", 'D'}, {2, "5112", "800", 'C'}}},
        {"36",
         "0005",
         "échéance d'emprunt",
         {{1, "512", "1000", 'C'}, {2, "164", "900", 'D'}, {3, "6611", "100", 'D'}}},
        {"37", "0005", "emprunt reçu", {{1, "512", "20000", 'D'}, {2, "164", "20000", 'C'}}},
        {"37",
         "0005",
         "dépôt de garantie versé",
         {{1, "512", "-1500", 'C'}, {2, "275", "1500", 'D'}}},
        {"38", "0005", "salaires nets payés", {{1, "512", "1500", 'C'}, {2, "421", "1500", 'D'}}},
        {"38", "0005", "TVA payée", {{1, "512", "400", 'C'}, {2, "44551", "400", 'D'}}},
        {"39",
         "0005",
         "prélèvement de l'exploitant",
         {{1, "531", "300", 'C'}, {2, "108", "300", 'D'}}},
        {"41",
         "0005",
         "paie du mois",
         {{1, "6411", "2000", 'D'},
          {1, "6451", "800", 'D'},
          {2, "431", "1240", 'C'},
          {2, "4421", "60", 'C'},
          {3, "421", "1500", 'C'}}},
        {"42",
         "0001",
         "TVA à payer",
         {{1, "445711", "1000", 'D'}, {2, "44566", "600", 'C'}, {3, "44551", "400", 'C'}}},
        {"42",
         "0005",
         "crédit de TVA",
         {{1, "44571", "500", 'D'}, {2, "44566", "800", 'C'}, {3, "44567", "300", 'D'}}},
        {"43",
         "0005",
         "véhicule apporté par l'exploitant",
         {{1, "2182", "8000", 'D'}, {1, "108", "8000", 'C'}}},
        {"44",
         "0005",
         "client en liquidation",
         {{1, "654", "1000", 'D'}, {2, "44571", "200", 'D'}, {3, "411", "1200", 'C'}}},
        {"45",
         "0005",
         "bénéfice mis en réserve et reporté",
         {{1, "120", "5000", 'D'}, {2, "1061", "500", 'C'}, {2, "110", "4500", 'C'}}},
        {"46", "0005", "perte reportée", {{1, "129", "3000", 'C'}, {2, "119", "3000", 'D'}}},
        {"47",
         "0005",
         "véhicule vendu",
         {{1, "675", "3000", 'D'}, {2, "28182", "7000", 'D'}, {3, "2182", "10000", 'C'}}},
        {"51",
         "0005",
         "amortissement de l'informatique",
         {{1, "6811", "2000", 'D'}, {2, "28183", "2000", 'C'}}},
        {"52",
         "0001",
         "stock initial de marchandises",
         {{1, "6037", "8000", 'D'}, {3, "370", "8000", 'C'}}},
        {"52",
         "0003",
         "stock initial de matières et de produits",
         {{1, "6031", "3000", 'D'},
          {2, "713", "2000", 'D'},
          {3, "311", "3000", 'C'},
          {3, "355", "2000", 'C'}}},
        {"53",
         "0001",
         "stock final de marchandises",
         {{1, "370", "9000", 'D'}, {2, "6037", "9000", 'C'}}},
        {"53",
         "0003",
         "stock final de matières et de produits",
         {{1, "311", "2500", 'D'},
          {1, "355", "4000", 'D'},
          {2, "6031", "2500", 'C'},
          {3, "713", "4000", 'C'}}},
        {"54",
         "0005",
         "assurance payée d'avance",
         {{1, "486", "600", 'D'}, {2, "616", "600", 'C'}}},
        {"54",
         "0002",
         "prestation facturée d'avance",
         {{1, "487", "2000", 'C'}, {3, "706", "2000", 'D'}}},
        {"55",
         "0002",
         "prestation à facturer",
         {{1, "418", "1200", 'D'}, {2, "706", "1000", 'C'}, {3, "44587", "200", 'C'}}},
        {"56",
         "0005",
         "facture d'électricité non parvenue",
         {{1, "6061", "500", 'D'}, {2, "44586", "100", 'D'}, {3, "408", "600", 'C'}}},
        {"56", "0005", "congés payés", {{1, "6412", "3000", 'D'}, {3, "4282", "3000", 'C'}}},
        {"57", "0005", "bénéfice", {{1, "699", "5000", 'D'}, {2, "120", "5000", 'C'}}},
        {"57", "0005", "perte", {{1, "799", "3000", 'C'}, {3, "129", "3000", 'D'}}},
        {"58", "0005", "client douteux", {{1, "6817", "400", 'D'}, {2, "491", "400", 'C'}}},
        {"58",
         "0005",
         "provision pour litige",
         {{1, "6815", "1000", 'D'}, {3, "151", "1000", 'C'}}},
        {"59",
         "0005",
         "client douteux qui a payé",
         {{1, "7817", "400", 'C'}, {2, "491", "400", 'D'}}},
        {"59", "0005", "litige gagné", {{1, "7815", "1000", 'C'}, {3, "151", "1000", 'D'}}},
    };
    return s;
}

} // namespace

class TestSaisieLogiqueEquilibree : public QObject {
    Q_OBJECT
    std::unique_ptr<BaseEssai> base;

private slots:
    // Une base pour tous les scénarios : chacun ne fait que recopier son plan type.
    void initTestCase() { base = std::make_unique<BaseEssai>(); }
    void cleanupTestCase() { base.reset(); }

    // Toute opération des menus a son scénario, et chaque case y sert au moins une fois.
    void scenarios_chaqueCaseDeChaqueOperation() {
        QSet<QString> servies;
        for (const Scenario& s : Scenarios())
            for (const Ligne& l : s.lignes)
                servies.insert(QString::fromLatin1(s.cle) + QString::number(l.case_));
        for (const table::Tableau& t : LignesTableau())
            QVERIFY2(servies.contains(t.tMenuLigne), qPrintable(t.tMenuLigne + " " + t.tMessage));
    }

    void saisie_ecritureJusteEtEquilibree_data() {
        QTest::addColumn<int>("indice");
        for (int i = 0; i < Scenarios().size(); ++i) {
            const Scenario& s = Scenarios()[i];
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(s.cle, QString::fromUtf8(s.nom))))
                << i;
        }
    }
    void saisie_ecritureJusteEtEquilibree() {
        QFETCH(int, indice);
        const Scenario& s = Scenarios()[indice];
        QVERIFY(CopierPlan(QString::fromLatin1(s.plan)) > 0);
        Montant debit, credit, gauche, droite;
        QSet<QString> choisis;
        for (const Ligne& l : s.lignes) {
            const QString compte = QString::fromLatin1(l.compte);
            const table::Tableau c =
                CaseDeMenu(QString::fromLatin1(s.cle) + QString::number(l.case_));
            QVERIFY2(!c.tMenuLigne.isEmpty(), l.compte);
            // Choix des comptes : proposé par la case, une seule fois dans l'écriture.
            QVERIFY2(
                ComptesProposes(c).contains(compte),
                qPrintable(QStringLiteral("%1 absent de la case %2").arg(compte, c.tMenuLigne)));
            QVERIFY2(!choisis.contains(compte), l.compte);
            choisis.insert(compte);
            table::Compte cpt;
            QVERIFY(LireCompte(Cle, compte, cpt));
            const QString er = cpt.ErCpt.trimmed();
            // Montant tapé, rectifié selon le signe de la case.
            Montant m = MontantDepuisTexte(QString::fromLatin1(l.tape));
            QVERIFY2(!m.estNul(), l.tape);
            const int signe = c.tSigne.toInt();
            if (m < Montant() && signe == 1) m = -m;
            if (m > Montant() && signe == 2) m = -m;
            // Côté : une augmentation est au débit à gauche (E1, E2), au crédit à droite.
            const bool gaucheDuBilan = er == "E1" || er == "E2";
            QVERIFY2(gaucheDuBilan || er == "R1" || er == "R2", qPrintable(compte + " " + er));
            const char sens = (m > Montant()) == gaucheDuBilan ? 'D' : 'C';
            QVERIFY2(sens == l.sens, qPrintable(QStringLiteral("%1 au %2 au lieu du %3")
                                                    .arg(compte, QString(QLatin1Char(sens)),
                                                         QString(QLatin1Char(l.sens)))));
            (sens == 'D' ? debit : credit) += m.abs();
            (gaucheDuBilan ? gauche : droite) += m;
        }
        // Actif + charges = passif + produits, et débits = crédits.
        QCOMPARE(gauche.dixMilliemes(), droite.dixMilliemes());
        QCOMPARE(debit.dixMilliemes(), credit.dixMilliemes());
        QVERIFY(!debit.estNul());
    }
};

QTEST_GUILESS_MAIN(TestSaisieLogiqueEquilibree)
#include "test_saisie_logique_equilibree.moc"
