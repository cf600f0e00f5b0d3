// Les états du catalogue vus par leur modèle, sans dessin : titres et formules communes,
// comptes et lignes gardés par la sélection et aucun autre, totaux égaux à ceux de la
// vérification des livres ; puis la balance écrite en PDF et relue.
#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "posting/Verification.h"
#include "reports/Catalogue.h"
#include "reports/DonneesEtats.h"
#include "reports/Peintre.h"
#include "session/Session.h"
#include "ui/Application.h"

#include <QProcess>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

using namespace rapport;
using essai::Euros;

namespace {

QStringList Cellules(const Document& d, int colonne, Genre genre = Genre::Detail) {
    QStringList sortie;
    for (const Ligne& l : d.lignes)
        if (l.genre == genre) sortie << l.cellules.value(colonne);
    return sortie;
}

Montant Somme(const Document& d, int colonne) {
    Montant s;
    for (const QString& t : Cellules(d, colonne))
        s += MontantDepuisTexte(t);
    return s;
}

} // namespace

class TestCatalogue : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        essai::NouvelleSession(dossier->Chemin());
        essai::OuvrirLivres(dossier->Chemin());
        essai::SoldeOuverture("512", Euros(1000));
        essai::SoldeOuverture("101", Euros(1000));
        essai::Ecriture("05/02/2024", "V",
                        {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
        essai::Ecriture("10/03/2024", "V",
                        {{"411001", "D", 60}, {"707", "C", 50}, {"44571", "C", 10}});
        essai::Ecriture("12/03/2024", "A",
                        {{"607", "D", 80}, {"44566", "D", 16}, {"401001", "C", 96}});
        essai::Ecriture("20/03/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
        session().DateSaisieCourante = QStringLiteral("31/03/2024");
        // Comme à l'ouverture des éditions.
        QCOMPARE(etats::ExtraireExercice(dossier->Chemin(), essai::Cle), etats::Extraction::Faite);
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void balanceGenerale_comptesEtTotaux() {
        const Document d = EtatBalance("G");
        QCOMPARE(d.titre, QStringLiteral("BALANCE GENERALE"));
        QCOMPARE(d.societe, session().NomSocCourante);
        QCOMPARE(d.Periode(), QStringLiteral("Exercice du 01/01/2024 au 31/12/2024"));
        QCOMPARE(d.version, QStringLiteral("Maroval Version ") + MAROVAL_VERSION);
        // Ni tiers, ni collectifs, ni comptes sans montant.
        QCOMPARE(Cellules(d, 0),
                 (QStringList{"101", "400", "410", "44566", "44571", "512", "607", "707"}));
        Montant debit, credit, soldeDebit, soldeCredit;
        TotauxBalance("G", debit, credit, soldeDebit, soldeCredit);
        const Ligne& total = d.lignes.back();
        QCOMPARE(total.genre, Genre::TotalGeneral);
        QCOMPARE(total.cellules.mid(3),
                 (QStringList{TexteMontant(debit), TexteMontant(credit), TexteMontant(soldeDebit),
                              TexteMontant(soldeCredit)}));
        QCOMPARE(Somme(d, 3), debit);
        QCOMPARE(Somme(d, 4), credit);
        QCOMPARE(Somme(d, 5), soldeDebit);
        QCOMPARE(Somme(d, 6), soldeCredit);
    }

    void balancesDesTiers() {
        const Document c = EtatBalance("C"), f = EtatBalance("F");
        QCOMPARE(c.titre, QStringLiteral("BALANCE CLIENTS"));
        QCOMPARE(f.titre, QStringLiteral("BALANCE FOURNISSEURS"));
        QCOMPARE(Cellules(c, 0), QStringList{"411001"});
        QCOMPARE(Cellules(f, 0), QStringList{"401001"});
        // Client : 180 facturés, 120 réglés, 60 dus.
        QCOMPARE(c.lignes.front().cellules.mid(3),
                 (QStringList{"180,00", "120,00", "60,00", QString()}));
    }

    void journaux_lignesDuJournalEtDuMois() {
        const Document tous = EtatJournal("*", 0);
        QCOMPARE(tous.titre, QStringLiteral("JOURNAL GENERAL"));
        QCOMPARE(Cellules(tous, 0).size(), 11);
        Montant debit, credit;
        TotauxJournal("*", debit, credit, 0);
        QCOMPARE(Somme(tous, 5), debit);
        QCOMPARE(Somme(tous, 6), credit);
        QCOMPARE(tous.lignes.back().cellules.mid(5),
                 (QStringList{TexteMontant(debit), TexteMontant(credit)}));

        const Document mars = EtatJournal("V", 3);
        QCOMPARE(mars.titre, QStringLiteral("JOURNAL DES VENTES - Mars"));
        QCOMPARE(Cellules(mars, 0), (QStringList{"4", "5", "6"}));
        QCOMPARE(Cellules(mars, 1), (QStringList{"10/03/2024", "10/03/2024", "10/03/2024"}));
        TotauxJournal("V", debit, credit, 3);
        QCOMPARE(debit, Euros(60));
        QCOMPARE(mars.lignes.back().cellules.mid(5), (QStringList{"60,00", "60,00"}));
        QVERIFY(EtatJournal("I", 0).lignes.size() == 1); // les totaux seuls
    }

    void grandLivre_groupesSoldesCourantsEtTotaux() {
        const Document d = EtatGrandLivre(QString());
        QCOMPARE(d.titre, QStringLiteral("GRAND LIVRE"));
        QStringList comptes;
        for (const QString& t : Cellules(d, 3, Genre::EnTeteGroupe))
            comptes << t.section(' ', 0, 0);
        // Les collectifs 400 et 410 restent hors du livre, les tiers y sont ; le capital,
        // sans aucune ligne de l'exercice, n'est pas dans la requête du livre.
        QCOMPARE(comptes, (QStringList{"401001", "411001", "44566", "44571", "512", "607", "707"}));
        // Dans chaque groupe, le solde courant finit sur le solde du compte, et les colonnes
        // débit et crédit font les cumuls du compte.
        QString numero;
        Montant debit, credit;
        QString dernierSolde;
        for (const Ligne& l : d.lignes) {
            if (l.genre == Genre::EnTeteGroupe) {
                numero = l.cellules[3].section(' ', 0, 0);
                debit = credit = Montant();
            } else if (l.genre == Genre::Detail) {
                debit += MontantDepuisTexte(l.cellules[4]);
                credit += MontantDepuisTexte(l.cellules[5]);
                dernierSolde = l.cellules[6];
            } else if (l.genre == Genre::TotalGroupe) {
                const table::Compte c = essai::LireCpt(numero);
                QCOMPARE(l.cellules[3], QStringLiteral("Total du compte ") + numero);
                QCOMPARE(dernierSolde, TexteMontant(c.Solde));
                QCOMPARE(l.cellules[6], TexteMontant(c.Solde));
                QCOMPARE(debit, c.CumD.abs());
                QCOMPARE(credit, c.CumC.abs());
            }
        }
        Montant td, tc, sd, sc;
        TotauxBalance("G", td, tc, sd, sc);
        const Ligne& soldes = d.lignes.back();
        QCOMPARE(soldes.cellules.mid(4, 2), (QStringList{TexteMontant(sd), TexteMontant(sc)}));

        const Document un = EtatGrandLivre(QStringLiteral("512"));
        QCOMPARE(un.titre, QStringLiteral("EDITION D'UN COMPTE"));
        QCOMPARE(Cellules(un, 3, Genre::EnTeteGroupe).size(), 1);
        QVERIFY(Cellules(un, 3, Genre::EnTeteGroupe).first().startsWith("512  Banque"));
        QCOMPARE(Cellules(un, 0).size(), 2); // solde de début et le règlement
    }

    // Les chiffres sont ceux de l'extraction : une écriture passée après n'y entre qu'à
    // l'extraction suivante (nouvelle ouverture des éditions).
    void etatsDeLExtraction_renouveleeAChaqueOuverture() {
        essai::Ecriture("25/03/2024", "D", {{"607", "D", 7}, {"512", "C", 7}});
        QCOMPARE(Cellules(EtatJournal("D", 0), 0), QStringList());
        const Document avant = EtatBalance("G");
        QCOMPARE(Cellules(avant, 3).at(Cellules(avant, 0).indexOf("607")), QStringLiteral("80,00"));
        QCOMPARE(Cellules(EtatGrandLivre("607"), 0).size(), 2); // solde de début et l'achat
        QCOMPARE(etats::ExtraireExercice(dossier->Chemin(), essai::Cle), etats::Extraction::Faite);
        QCOMPARE(Cellules(EtatJournal("D", 0), 0), (QStringList{"12", "13"}));
        const Document b = EtatBalance("G");
        QCOMPARE(Cellules(b, 3).at(Cellules(b, 0).indexOf("607")), QStringLiteral("87,00"));
        QCOMPARE(Cellules(EtatGrandLivre("607"), 0).size(), 3);
    }

    // Un compte de l'exercice précédent ou d'une autre société n'est pas dans l'extraction.
    void extraction_exerciceSeul() {
        SQLite::Database db(QFile::encodeName(dossier->Fichier("sauve.mdb")).toStdString());
        SQLite::Statement q(db, "SELECT count(*), count(DISTINCT CleCpt) FROM Compte");
        QVERIFY(q.executeStep());
        QCOMPARE(q.getColumn(0).getInt(),
                 essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012024'"));
        QCOMPARE(q.getColumn(1).getInt(), 1);
        SQLite::Statement e(db, "SELECT count(*) FROM Ecriture WHERE CleCpt='012024'");
        QVERIFY(e.executeStep());
        QCOMPARE(e.getColumn(0).getInt(), 11);
    }

    void journalCentralisateur_moisParJournalEtTotauxAnnuels() {
        QList<int> jauge;
        etats::RemplirJourCent(essai::Cle, session().NomsMois, [&](int v) { jauge << v; });
        QCOMPARE(jauge, (QList<int>{10, 20, 30, 40, 50, 60}));
        const std::vector<etats::LigneJourCent> lignes = etats::LireJourCent();
        QCOMPARE(lignes.size(), std::size_t(72));
        QCOMPARE(lignes.front().journal, QStringLiteral("Journal Général"));
        QCOMPARE(lignes.front().mois, QStringLiteral("Janvier"));
        QCOMPARE(lignes[12].journal, QStringLiteral("Journal des Ventes"));
        QCOMPARE(lignes[12 + 2].mois, QStringLiteral("Mars"));
        Montant debit, credit;
        TotauxJournal("V", debit, credit, 3);
        QCOMPARE(lignes[12 + 2].debit, debit);
        QCOMPARE(lignes[12 + 2].credit, credit);

        const Document d = EtatJourCent();
        QCOMPARE(d.titre, QStringLiteral("JOURNAL CENTRALISATEUR"));
        QCOMPARE(Cellules(d, 0, Genre::EnTeteGroupe),
                 (QStringList{"Journal Général", "Journal des Ventes", "Journal des Achats",
                              "Journal de Trésorerie", "Journal des Opérations Diverses",
                              "Journal d'Inventaire"}));
        const QStringList totaux = Cellules(d, 2, Genre::TotalGroupe);
        const QStringList codes = {"*", "V", "A", "T", "D", "I"};
        for (int i = 0; i < codes.size(); ++i) {
            TotauxJournal(codes[i], debit, credit, 0);
            QCOMPARE(totaux[i], TexteMontant(debit));
        }
        // Relancé, le centralisateur ne double rien.
        etats::RemplirJourCent(essai::Cle, session().NomsMois, {});
        QCOMPARE(etats::LireJourCent().size(), std::size_t(72));
    }

    // Plus de passif que d'actif : toutes les lignes, la gauche vide en bas.
    void bilan_deuxColonnesCoteACote() {
        Base().exec("UPDATE Compte SET Solde = 0 WHERE CleCpt='012024' AND NumCpt IN "
                    "('410', '44566')");
        etats::RemplirWbilan(essai::Cle, "B");
        const Document d = EtatResulBilan("B");
        QCOMPARE(d.titre, QStringLiteral("BILAN"));
        QCOMPARE(d.colonnes[1].titre, QStringLiteral("ACTIF"));
        QCOMPARE(d.colonnes[4].titre, QStringLiteral("PASSIF"));
        QCOMPARE(Cellules(d, 0), (QStringList{"512", QString(), QString()}));
        QCOMPARE(Cellules(d, 3), (QStringList{"101", "400", "44571"}));
        QCOMPARE(Cellules(d, 2).mid(1), (QStringList{QString(), QString()}));
        QCOMPARE(d.lignes.back().cellules[2], TexteMontant(essai::LireCpt("512").Solde));

        etats::RemplirWbilan(essai::Cle, "R");
        const Document r = EtatResulBilan("R");
        QCOMPARE(r.titre, QStringLiteral("COMPTE DE RESULTAT"));
        QCOMPARE(Cellules(r, 0), QStringList{"607"});
        QCOMPARE(Cellules(r, 3), QStringList{"707"});
        QCOMPARE(Cellules(r, 5), QStringList{"150,00"});
    }

    void plan_tousLesComptesMemeSansMontant() {
        const Document d = EtatPlan();
        QCOMPARE(d.titre, QStringLiteral("PLAN COMPTABLE"));
        const QStringList numeros = Cellules(d, 0);
        QCOMPARE(numeros.size(),
                 essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012024'"));
        QVERIFY(numeros.contains("2154"));
        QVERIFY(numeros.contains("699"));
        QVERIFY(std::is_sorted(numeros.begin(), numeros.end()));
    }

    void balanceEnPdf_relue() {
        const Document d = EtatBalance("G");
        const QString chemin = dossier->Fichier("balance.pdf");
        int pages = 0;
        QCOMPARE(EcrirePdf(d, chemin, QStringLiteral("31/03/2024"), &pages), QString());
        QCOMPARE(pages, 1);
        const QString t = essai::TextePdf(chemin);
        QVERIFY(t.contains("BALANCE GENERALE"));
        QVERIFY(t.contains("Page 1 / 1"));
        for (const QString& numero : Cellules(d, 0))
            QVERIFY2(t.contains(QRegularExpression("\\b" + numero + "\\b")), qPrintable(numero));
        QVERIFY(!t.contains("411001"));
        QVERIFY(t.contains(d.lignes.back().cellules[3]));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestCatalogue test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_catalogue.moc"
