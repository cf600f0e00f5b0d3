// Les routines d'enregistrement : une par table et par opération, avec la recherche et
// le comportement « non trouvé » propres à chaque table.

#include "support/DossierEssai.h"
#include "support/Outils.h"

#include "store/Base.h"
#include "store/Routines.h"

#include <QtTest>

using essai::Euros;

class TestEnregistrements : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirBase(dossier->Chemin());
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void cleExercice_societeSurDeuxChiffresAnneeSurQuatre() {
        QCOMPARE(CleExercice(1, 2024), QStringLiteral("012024"));
        QCOMPARE(CleExercice(12, 1999), QStringLiteral("121999"));
        // Au-delà de 99 sociétés la clé a 7 caractères, sans garde.
        QCOMPARE(CleExercice(100, 2024), QStringLiteral("1002024"));
    }

    void societe_ajoutRendLeNumeroDonneParLaBase() {
        table::Societe s;
        s.Nom = "Boulangerie Martin";
        s.Ville = "Lyon";
        s.Telephone = "04 78 00 00 00";
        const int n1 = AjouterSociete(s);
        table::Societe t;
        t.Nom = "Garage du Centre";
        const int n2 = AjouterSociete(t);
        QVERIFY(n1 > 0);
        QCOMPARE(n2, n1 + 1);
        QCOMPARE(int(t.NumSoc), n2);
        table::Societe lu;
        QVERIFY(LireSociete(n1, lu));
        QCOMPARE(lu.Nom, QStringLiteral("Boulangerie Martin").leftJustified(30));
        QCOMPARE(lu.Telephone.trimmed(), QStringLiteral("04 78 00 00 00"));
        lu.Ville = "Villeurbanne";
        QVERIFY(MajSociete(n1, lu));
        table::Societe relu;
        QVERIFY(LireSociete(n1, relu));
        QCOMPARE(relu.Ville.trimmed(), QStringLiteral("Villeurbanne"));
    }

    void societe_absenteLaisseLEnregistrement() {
        table::Societe s;
        s.Nom = "inchangé";
        QVERIFY(!LireSociete(42, s));
        QCOMPARE(s.Nom, QStringLiteral("inchangé"));
    }

    void compte_lectureDUnNumeroAbsentLaisseLEnregistrementIntact() {
        table::Compte c;
        c.NumCpt = "512";
        c.LibCpt = "Banque";
        c.Solde = Euros(12.5);
        c.Menu = 330;
        QVERIFY(!LireCompte("012024", "999", c));
        QCOMPARE(c.NumCpt, QStringLiteral("512"));
        QCOMPARE(c.LibCpt, QStringLiteral("Banque"));
        QCOMPARE(c.Solde, Euros(12.5));
        QCOMPARE(int(c.Menu), 330);
    }

    void compte_ajoutLectureMajTousLesChamps() {
        table::Compte c;
        c.CleCpt = "012024";
        c.NumCpt = "401DUPON";
        c.LibCpt = "Dupont \"le fils\" & l'associé";
        c.ErCpt = "R1";
        c.Bilan = "DAP";
        c.Tiers = true;
        c.Sde = Euros(100);
        c.CumD = Euros(-20.5);
        c.CumC = Euros(30.25);
        c.Solde = Euros(109.75);
        c.SoldeAnte = Euros(-1);
        for (int m = 1; m <= 12; ++m) {
            c.CumDM[m] = Euros(m);
            c.CumCM[m] = Euros(-m * 2);
        }
        c.Menu = 160;
        c.Fisc = "40";
        AjouterCompte(c);
        table::Compte lu;
        QVERIFY(LireCompte("012024", "401DUPON", lu));
        QCOMPARE(lu.NumCpt, QStringLiteral("401DUPON"));
        QCOMPARE(lu.LibCpt.trimmed(), c.LibCpt); // guillemets et apostrophe tels quels
        QCOMPARE(lu.LibCpt.size(), 40);
        QCOMPARE(lu.ErCpt, QStringLiteral("R1"));
        QCOMPARE(lu.Bilan, QStringLiteral("DAP  "));
        QVERIFY(lu.Tiers);
        QCOMPARE(lu.Solde, Euros(109.75));
        QCOMPARE(lu.CumC, Euros(30.25));
        QCOMPARE(lu.CumDM[7], Euros(7));
        QCOMPARE(lu.CumCM[12], Euros(-24));
        QCOMPARE(int(lu.Menu), 160);
        lu.Solde = Euros(0.01);
        QVERIFY(MajCompte("012024", "401DUPON", lu));
        table::Compte relu;
        QVERIFY(LireCompte("012024", "401DUPON", relu));
        QCOMPARE(relu.Solde, Euros(0.01));
        QVERIFY(!MajCompte("012025", "401DUPON", relu)); // autre exercice : rien n'est écrit
    }

    void compte_numeroComparePadOuNon() {
        table::Compte c;
        c.CleCpt = "012024";
        c.NumCpt = "400";
        AjouterCompte(c);
        table::Compte lu;
        QVERIFY(LireCompte("012024", "400     ", lu));
        QVERIFY(LireCompte("012024", "400", lu));
        QVERIFY(!LireCompte("012024", "4000", lu));
        QVERIFY(!LireCompte("022024", "400", lu));
    }

    void compte_libelleCoupeALaLargeur() {
        table::Compte c;
        c.CleCpt = "012024";
        c.NumCpt = "6064000099";
        c.LibCpt = QString(60, QLatin1Char('x'));
        AjouterCompte(c);
        table::Compte lu;
        QVERIFY(LireCompte("012024", "60640000", lu));
        QCOMPARE(lu.NumCpt, QStringLiteral("60640000"));
        QCOMPARE(lu.LibCpt, QString(40, QLatin1Char('x')));
    }

    void ventilation_autreCleRepondNon() {
        table::Ventilation v;
        v.CleCpt = "012024";
        v.NumVentil = 7;
        v.Ventil[1] = Euros(10);
        v.Ventil[98] = Euros(-3.5);
        AjouterVentilation(v);
        table::Ventilation lu;
        QVERIFY(LireVentilation("012024", 7, lu));
        QCOMPARE(lu.Ventil[98], Euros(-3.5));
        table::Ventilation autre;
        QVERIFY(!LireVentilation("022024", 7, autre));
        QVERIFY(!LireVentilation("012024", 8, autre));
        lu.Ventil[2] = Euros(4);
        QVERIFY(MajVentilation("012024", 7, lu));
        table::Ventilation relu;
        QVERIFY(LireVentilation("012024", 7, relu));
        QCOMPARE(relu.Ventil[2], Euros(4));
    }

    void ecriture_ajoutEtLecture() {
        table::Ecriture e;
        e.CleCpt = "012024";
        e.NumEcr = 3;
        e.DateEcr = "20240315";
        e.NumCptEcr = "411DURAN";
        e.ErEcr = "E1";
        e.MntEcr = Euros(-120.4);
        e.LibEcr = "Facture 12";
        e.DCEcr = "C";
        e.Journal = "V";
        e.Fin = true;
        e.Lettrage = 255;
        e.SectionEcr = 99;
        e.VentilEcr = true;
        AjouterEcriture(e);
        table::Ecriture lu;
        QVERIFY(LireEcriture("012024", 3, lu));
        QCOMPARE(lu.MntEcr, Euros(-120.4));
        QCOMPARE(int(lu.Lettrage), 255);
        QCOMPARE(lu.DateEcheance, QStringLiteral("        "));
        QVERIFY(lu.Fin);
        QVERIFY(lu.VentilEcr);
        QCOMPARE(int(lu.SectionEcr), 99);
        QVERIFY(!LireEcriture("012024", 4, lu));
    }

    void saisie_ajoutDesVingtQuatreChampsEtDerniereNonFinie() {
        table::Saisie a;
        a.wNumCpt = "512";
        a.wMntEcr = Euros(50);
        a.wFin = false;
        a.wMenuLigne = "11";
        a.wRappel = true;
        a.wSigne = "+";
        a.wNombre = "1";
        a.wSectionEcr = 3;
        a.wVentilEcr = 1;
        AjouterSaisie(a);
        table::Saisie b = a;
        b.wNumCpt = "706";
        b.wMntEcr = Euros(50);
        AjouterSaisie(b);
        table::Saisie c = a;
        c.wNumCpt = "445";
        c.wFin = true;
        AjouterSaisie(c);
        table::Saisie lu;
        QVERIFY(LireDerniereSaisie(lu));
        QCOMPARE(lu.wNumCpt.trimmed(), QStringLiteral("706"));
        QCOMPARE(lu.wSigne, QStringLiteral("+"));
        QVERIFY(lu.wRappel);
        QCOMPARE(lu.wSectionEcr, 3.0);
        Base().exec("DELETE FROM wSaisie");
        table::Saisie vide;
        vide.wNumCpt = "garde";
        QVERIFY(!LireDerniereSaisie(vide));
        QCOMPARE(vide.wNumCpt, QStringLiteral("garde"));
    }

    void budget_ouiNon() {
        table::Budget b;
        b.CleCpt = "012024";
        b.NumBud = "607";
        b.LibBud = "Achats de marchandises";
        b.ERBUD = "E2";
        b.Budget = Euros(1200);
        b.BudgetM[1] = Euros(100);
        b.Reel = Euros(50.5);
        b.ReelM[3] = Euros(50.5);
        b.BudFutM[12] = Euros(9);
        AjouterBudget(b);
        table::Budget lu;
        QVERIFY(LireBudget("012024", "607", lu));
        QCOMPARE(lu.ReelM[3], Euros(50.5));
        QCOMPARE(lu.BudFutM[12], Euros(9));
        QVERIFY(!LireBudget("012024", "707", lu));
        lu.Reel = Euros(60);
        QVERIFY(MajBudget("012024", "607", lu));
        table::Budget relu;
        QVERIFY(LireBudget("012024", "607", relu));
        QCOMPARE(relu.Reel, Euros(60));
    }

    void wbilan_ouiNon() {
        table::Wbilan w;
        w.Clef = 1;
        w.Numero1 = "211";
        w.Solde1 = Euros(3);
        AjouterWbilan(w);
        table::Wbilan lu;
        QVERIFY(LireWbilan(1, lu));
        QCOMPARE(lu.Solde1, Euros(3));
        QVERIFY(!LireWbilan(2, lu));
        lu.Solde2 = Euros(4);
        QVERIFY(MajWbilan(1, lu));
        table::Wbilan relu;
        QVERIFY(LireWbilan(1, relu));
        QCOMPARE(relu.Solde2, Euros(4));
    }

    void constante_tousLesTotauxAllerRetour() {
        table::Constante c;
        c.CleCon = "012024";
        c.DateDebut = "20240101";
        c.DateFin = "20241231";
        c.TDJG = Euros(1);
        c.TCJIM[12] = Euros(2);
        c.TDJVM[1] = Euros(3);
        c.LastNumEcrit = 17;
        c.Resultat = Euros(-4);
        c.OuvertureClos = true;
        c.SymboleMon = "€";
        AjouterConstante(c);
        table::Constante lu;
        QVERIFY(LireConstante("012024", lu));
        QCOMPARE(lu.CleCon, QStringLiteral("012024"));
        QCOMPARE(lu.DateDebut, QStringLiteral("20240101"));
        QCOMPARE(lu.DateSaisie, QString()); // dates en texte variable, sans blancs
        QCOMPARE(lu.TCJIM[12], Euros(2));
        QCOMPARE(lu.TDJVM[1], Euros(3));
        QCOMPARE(lu.LastNumEcrit, 17.0);
        QCOMPARE(lu.Resultat, Euros(-4));
        QVERIFY(lu.OuvertureClos);
        QCOMPARE(lu.SymboleMon, QStringLiteral("€"));
        lu.TDJG = Euros(5);
        QVERIFY(MajConstante("012024", lu));
        table::Constante relu;
        QVERIFY(LireConstante("012024", relu));
        QCOMPARE(relu.TDJG, Euros(5));
        QVERIFY(!LireConstante("022024", relu));
    }

    void section_lecture() {
        table::Section s;
        s.CleCpt = "012024";
        s.NumSection = 4;
        s.NomSection = "Atelier";
        AjouterSection(s);
        table::Section lu;
        QVERIFY(LireSection("012024", 4, lu));
        QCOMPARE(lu.NomSection.trimmed(), QStringLiteral("Atelier"));
        QVERIFY(!LireSection("012024", 5, lu));
    }

    void filtre_plageCouvranteEtNumeroNonCouvert() {
        Base().exec("DELETE FROM filtre");
        Base().exec(
            "INSERT INTO filtre VALUES ('512', '512ZZZZZ', 'Banques', 'E1', 'MD', 0, '330')");
        Base().exec(
            "INSERT INTO filtre VALUES ('530', '539ZZZZZ', 'Caisse', 'E1', 'MD', 0, '340')");
        table::Filtre f = LireFiltre("5121");
        QCOMPARE(f.ERCPT, QStringLiteral("E1"));
        QCOMPARE(f.Menu, QStringLiteral("330"));
        QCOMPARE(f.Message.trimmed(), QStringLiteral("Banques"));
        QCOMPARE(LireFiltre("531").Menu, QStringLiteral("340"));
        // Un numéro que rien ne couvre rend un enregistrement vide, sans erreur.
        const table::Filtre vide = LireFiltre("520");
        QVERIFY(vide.ERCPT.trimmed().isEmpty());
        QVERIFY(vide.Message.trimmed().isEmpty());
        QVERIFY(!vide.Tiers);
    }
};

QTEST_GUILESS_MAIN(TestEnregistrements)
#include "test_enregistrements.moc"
