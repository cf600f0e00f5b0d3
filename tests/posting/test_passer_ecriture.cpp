// Passage d'une écriture : numérotation, lignes d'Ecriture, images et marqueur dans leur
// ordre, contrôle de l'équilibre, échecs du marqueur et compte inconnu.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"
#include "support/Recalcul.h"

#include "posting/PasserEcriture.h"
#include "posting/Securite.h"
#include "posting/Verification.h"
#include "session/FichierProfil.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QtTest>
#include <sys/stat.h>

using namespace essai;

namespace {

struct Photo {
    QString erreur, cleCpt, dernum;
    int imagesConstante = 0, imagesCompte = 0, imagesBudget = 0, lignes = 0;
    double lastNum = 0;
};

} // namespace

class TestPasserEcriture : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    Depart depart;
    QList<Photo> photos;

    ino_t Inode() {
        struct stat e {};
        ::stat(QFile::encodeName(CheminIni()).constData(), &e);
        return e.st_ino;
    }

    QString Ini(const char* cle) { return FichierProfil(CheminIni()).Lire("Securite", cle, "?"); }

    // Avant chaque écriture du marqueur : ce que le fichier et la base montrent alors.
    void PhotographierAvantMarqueur() {
        photos.clear();
        FichierProfil::AvantEcriture = [this] {
            Photo p;
            p.erreur = Ini("Erreur");
            p.cleCpt = Ini("CleCpt");
            p.dernum = Ini("Dernum");
            p.imagesConstante = Compter("SELECT count(*) FROM Constante WHERE CleCon='000000'");
            p.imagesCompte = Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'");
            p.imagesBudget = Compter("SELECT count(*) FROM Budget WHERE CleCpt='000000'");
            p.lignes = Compter("SELECT count(*) FROM Ecriture");
            p.lastNum = DernierNumero();
            photos << p;
        };
    }

    int Images(const char* numero) {
        SQLite::Statement q(Base(), "SELECT count(*) FROM Compte WHERE CleCpt='000000' AND "
                                    "NumCpt=?");
        q.bind(1, numero);
        q.executeStep();
        return q.getColumn(0).getInt();
    }

    void VerifierLivres() {
        const QString ecarts = EcartsDesLivres(depart);
        QVERIFY2(ecarts.isEmpty(), qPrintable(ecarts));
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Budget WHERE CleCpt='000000'"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Constante WHERE CleCon='000000'"), 0);
        QCOMPARE(Ini("Erreur"), QStringLiteral("0"));
    }

    QList<table::Ecriture> Lignes() {
        QList<table::Ecriture> lignes;
        SQLite::Statement q(Base(), "SELECT NumEcr FROM Ecriture ORDER BY NumEcr");
        while (q.executeStep()) {
            table::Ecriture e;
            LireEcriture(Cle, q.getColumn(0).getDouble(), e);
            lignes << e;
        }
        return lignes;
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
        depart = Photographier();
    }
    void cleanup() {
        FichierProfil::AvantEcriture = nullptr;
        FermerBase();
        dossier.reset();
    }

    void lignesNumeroteesALaSuiteFinSurLaDerniere() {
        Vente(Euros(1000), Euros(200));
        Vente(Euros(50), Euros(10));
        const auto lignes = Lignes();
        QCOMPARE(lignes.size(), 6);
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(lignes[i].NumEcr, double(i + 1));
            QCOMPARE(lignes[i].Fin, i == 2 || i == 5);
        }
        QCOMPARE(DernierNumero(), 6.0);
        VerifierLivres();
    }

    void champsDeLaLigneCopiesDansEcriture() {
        ViderSaisie();
        table::Saisie s = Ligne("411001", "D", Euros(12.34), "V");
        s.wDatePiece = "20240310";
        s.wDateEcheance = "20240410";
        s.wMoisEcheance = "04";
        s.wLibEcr = QStringLiteral("Facture \"n°12\" d'avril");
        s.wLettrage = true;
        s.wSectionEcr = 5;
        s.wVentilEcr = 1;
        AjouterSaisie(s);
        Saisir("707", "C", Euros(12.34));
        Passer();
        table::Ecriture e;
        QVERIFY(LireEcriture(Cle, 1, e));
        QCOMPARE(e.CleCpt.trimmed(), Cle);
        QCOMPARE(e.DateEcr, QStringLiteral("20240315"));
        QCOMPARE(e.DatePiece, QStringLiteral("20240310"));
        QCOMPARE(e.NumCptEcr.trimmed(), QStringLiteral("411001"));
        QCOMPARE(e.ErEcr, QStringLiteral("E1"));
        QCOMPARE(e.MntEcr, Euros(12.34));
        QCOMPARE(e.LibEcr.trimmed(), QStringLiteral("Facture \"n°12\" d'avril"));
        QCOMPARE(e.DCEcr, QStringLiteral("D"));
        QCOMPARE(e.Journal, QStringLiteral("V"));
        QCOMPARE(e.Fin, false);
        QCOMPARE(e.DateEcheance, QStringLiteral("20240410"));
        QCOMPARE(e.MoisEcheance, QStringLiteral("04"));
        // Un oui rangé dans l'octet de lettrage vaut 255.
        QCOMPARE(int(e.Lettrage), 255);
        QCOMPARE(int(e.SectionEcr), 5);
        QCOMPARE(e.VentilEcr, true);
        QVERIFY(LireEcriture(Cle, 2, e));
        QCOMPARE(e.MntEcr, Euros(12.34));
        QCOMPARE(e.DCEcr, QStringLiteral("C"));
        QCOMPARE(int(e.Lettrage), 0);
        QCOMPARE(e.Fin, true);
        VerifierLivres();
    }

    void numerosEcritsDansLaTableDeTravailQuiReste() {
        Vente(Euros(100), Euros(20));
        QCOMPARE(Compter("SELECT count(*) FROM wSaisie"), 3);
        SQLite::Statement q(Base(), "SELECT wNumEcrt FROM wSaisie ORDER BY rowid");
        QList<double> numeros;
        while (q.executeStep())
            numeros << q.getColumn(0).getDouble();
        QCOMPARE(numeros, (QList<double>{1, 2, 3}));
    }

    void lignesAZeroSauteesFinSurLaDerniereAvecMontant() {
        ViderSaisie();
        Saisir("411001", "D", Euros(100));
        Saisir("626", "D", Montant());
        Saisir("707", "C", Euros(100));
        Saisir("44571", "C", Montant());
        Passer();
        const auto lignes = Lignes();
        QCOMPARE(lignes.size(), 2);
        QCOMPARE(lignes[0].NumCptEcr.trimmed(), QStringLiteral("411001"));
        QCOMPARE(lignes[1].NumCptEcr.trimmed(), QStringLiteral("707"));
        QCOMPARE(lignes[1].NumEcr, 2.0);
        QCOMPARE(lignes[1].Fin, true);
        QCOMPARE(lignes[0].Fin, false);
        SQLite::Statement q(Base(), "SELECT wNumEcrt FROM wSaisie ORDER BY rowid");
        QList<double> numeros;
        while (q.executeStep())
            numeros << q.getColumn(0).getDouble();
        QCOMPARE(numeros, (QList<double>{1, 0, 2, 0}));
        VerifierLivres();
    }

    void toutAZeroNePasseRienEtRemetLastNumEcritAZero() {
        Vente(Euros(100), Euros(20));
        const QStringList avant = Vidage();
        ViderSaisie();
        Saisir("512", "D", Montant());
        Saisir("707", "C", Montant());
        Passer();
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        QCOMPARE(DernierNumero(), 0.0);
        // Rien d'autre n'a bougé que LastNumEcrit.
        const QStringList diff = Difference(avant, Vidage());
        QCOMPARE(diff.size(), 1);
        QVERIFY(diff[0].startsWith("Constante|"));
        QVERIFY(diff[0].contains("|LastNumEcrit=0.0|"));
    }

    void memeCompteDeuxFoisDeuxImagesDeuxMisesAJour() {
        ViderSaisie();
        Saisir("512", "D", Euros(50));
        Saisir("512", "D", Euros(70));
        Saisir("707", "C", Euros(120));
        int imagesBanque = -1;
        int appel = 0;
        FichierProfil::AvantEcriture = [&] {
            if (++appel == 2) imagesBanque = Images("512");
        };
        Passer();
        QCOMPARE(imagesBanque, 2);
        table::Compte c;
        LireCompte(Cle, "512", c);
        QCOMPARE(c.CumD, Euros(120));
        QCOMPARE(c.CumDM[3], Euros(120));
        QCOMPARE(c.Solde, Euros(120));
        VerifierLivres();
    }

    void deuxJournauxChaqueLigneGardeSaLettreTotauxAuPremier() {
        ViderSaisie();
        Saisir("607", "D", Euros(100), "A");
        Saisir("512", "C", Euros(100), "T");
        Passer();
        const auto lignes = Lignes();
        QCOMPARE(lignes[0].Journal, QStringLiteral("A"));
        QCOMPARE(lignes[1].Journal, QStringLiteral("T"));
        table::Constante k;
        LireConstante(Cle, k);
        QCOMPARE(k.TDJA, Euros(100));
        QCOMPARE(k.TCJA, Euros(100));
        QCOMPARE(k.TDJAM[3], Euros(100));
        QCOMPARE(k.TCJAM[3], Euros(100));
        QCOMPARE(k.TDJT, Montant());
        QCOMPARE(k.TCJT, Montant());
        QCOMPARE(k.TDJG, Euros(100));
        VerifierLivres();
    }

    void monnaieDeLExerciceNiConversionNi677Ni777() {
        ViderSaisie();
        table::Saisie a = Ligne("607", "D", Montant::depuisDixMilliemes(100050));
        AjouterSaisie(a);
        AjouterSaisie(a);
        Saisir("512", "C", Montant::depuisDixMilliemes(200100));
        Passer("E");
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE NumCpt IN ('677','777')"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        QCOMPARE(Compter("SELECT sum(MntEcr) FROM Ecriture WHERE DCEcr='D'"), 200100);
    }

    void marqueurEtImagesDansLOrdreDesEtapes() {
        ViderSaisie();
        Saisir("411001", "D", Euros(120));
        Saisir("707", "C", Euros(100));
        Saisir("44571", "C", Euros(20));
        PhotographierAvantMarqueur();
        PasserEcriture("1", "E");
        QCOMPARE(photos.size(), 3);
        // Avant le marqueur 1 : rien n'a commencé.
        QCOMPARE(photos[0].erreur, QStringLiteral("0"));
        QCOMPARE(photos[0].imagesConstante + photos[0].imagesCompte + photos[0].imagesBudget, 0);
        // Avant le marqueur 2 : le marqueur 1 et sa clé, les images, les livres intacts.
        QCOMPARE(photos[1].erreur, QStringLiteral("1"));
        QCOMPARE(photos[1].cleCpt, Cle);
        QCOMPARE(photos[1].dernum, QStringLiteral("1"));
        QCOMPARE(photos[1].imagesConstante, 1);
        QCOMPARE(photos[1].imagesCompte, 5); // 400, 410 et les trois comptes des lignes
        QCOMPARE(photos[1].imagesBudget, 1); // 707 seul a un budget
        QCOMPARE(photos[1].lignes, 0);
        QCOMPARE(photos[1].lastNum, 0.0);
        // Avant le marqueur 0 : les livres ont changé, les images sont encore là.
        QCOMPARE(photos[2].erreur, QStringLiteral("2"));
        QCOMPARE(photos[2].lignes, 3);
        QCOMPARE(photos[2].lastNum, 3.0);
        QCOMPARE(photos[2].imagesCompte, 5);
        VerifierLivres();
    }

    void marqueurEcritSansToucherAuResteDuFichier() {
        const QByteArray origine =
            "\xEF\xBB\xBF; Réglages\r\n[Options]\r\nSymbEu=E\r\n\r\n"
            "[securite]\r\nerreur = 0 \r\n; fin\r\n[Controle]\r\nDebug=0\r\n";
        QFile f(CheminIni());
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(origine);
        f.close();
        auto attendu = FichierProfil::EcrireDansTexte(origine, "Securite", "Erreur", "1");
        attendu = FichierProfil::EcrireDansTexte(*attendu, "Securite", "CleCpt", Cle);
        attendu = FichierProfil::EcrireDansTexte(*attendu, "Securite", "Dernum", "1");
        attendu = FichierProfil::EcrireDansTexte(*attendu, "Securite", "Erreur", "0");
        QVERIFY(attendu);
        Vente(Euros(10), Euros(2));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), *attendu);
        VerifierLivres();
    }

    void marqueurDUnChiffreReecritSurPlace() {
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "1"));
        const auto inode = Inode();
        EcrireMarqueur("2");
        QCOMPARE(Ini("Erreur"), QStringLiteral("2"));
        QCOMPARE(Inode(), inode);
    }

    void marqueurDeLongueurDifferenteReecritLeFichierEntier() {
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "12"));
        const auto inode = Inode();
        EcrireMarqueur("2");
        QCOMPARE(Ini("Erreur"), QStringLiteral("2"));
        QVERIFY(Inode() != inode);
        EcrireMarqueur("0");
        QCOMPARE(Ini("Erreur"), QStringLiteral("0"));
    }

    void imagesDesCollectifsMemeSansLigneDeTiers() {
        ViderSaisie();
        Saisir("607", "D", Euros(10), "A");
        Saisir("512", "C", Euros(10), "A");
        int images400 = 0, images410 = 0, appel = 0;
        FichierProfil::AvantEcriture = [&] {
            if (++appel != 2) return;
            images400 = Images("400");
            images410 = Images("410");
        };
        Passer();
        QCOMPARE(images400, 1);
        QCOMPARE(images410, 1);
        VerifierLivres();
    }

    void imageDeBudgetSeulementPourUnCompteQuiEnA() {
        CompteSansBudget("6064", "Fournitures");
        depart = Photographier();
        ViderSaisie();
        Saisir("607", "D", Euros(10), "A");
        Saisir("6064", "D", Euros(5), "A");
        Saisir("512", "C", Euros(15), "A");
        QStringList budgets;
        int appel = 0;
        FichierProfil::AvantEcriture = [&] {
            if (++appel != 2) return;
            SQLite::Statement q(Base(), "SELECT NumBud FROM Budget WHERE CleCpt='000000'");
            while (q.executeStep())
                budgets << QString::fromUtf8(q.getColumn(0).getText());
        };
        Passer();
        QCOMPARE(budgets, QStringList{"607"});
        // Le budget de 6064 est fait par l'écriture.
        table::Budget b;
        QVERIFY(LireBudget(Cle, "6064", b));
        QCOMPARE(b.Reel, Euros(5));
        VerifierLivres();
    }

    void premierNumeroDonneParDernumEnTexte() {
        ViderSaisie();
        Saisir("512", "D", Euros(1));
        Saisir("707", "C", Euros(1));
        PasserEcriture("10", "E");
        const auto lignes = Lignes();
        QCOMPARE(lignes.size(), 2);
        QCOMPARE(lignes[0].NumEcr, 10.0);
        QCOMPARE(lignes[1].NumEcr, 11.0);
        QCOMPARE(DernierNumero(), 11.0);
        QCOMPARE(Ini("Dernum"), QStringLiteral("10"));
    }

    void moisDesCumulsPrisDeLaDateDeSaisie() {
        session().DateSaisieCourante = "20/07/2024";
        ViderSaisie();
        table::Saisie a = Ligne("512", "D", Euros(30));
        a.wDateEcr = "20240301";
        AjouterSaisie(a);
        table::Saisie b = Ligne("707", "C", Euros(30));
        b.wDateEcr = "20240301";
        AjouterSaisie(b);
        Passer();
        table::Compte c;
        LireCompte(Cle, "512", c);
        QCOMPARE(c.CumDM[7], Euros(30));
        QCOMPARE(c.CumDM[3], Montant());
        table::Constante k;
        LireConstante(Cle, k);
        QCOMPARE(k.TDJGM[7], Euros(30));
        QCOMPARE(k.TDJVM[7], Euros(30));
        table::Budget bud;
        LireBudget(Cle, "707", bud);
        QCOMPARE(bud.ReelM[7], Euros(30));
    }

    void controleEquilibreTableVide() {
        ViderSaisie();
        QVERIFY(ControlerEquilibre());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void controleEquilibreDebitsEgauxCredits() {
        ViderSaisie();
        Saisir("411001", "D", Euros(120));
        Saisir("707", "C", Euros(100));
        Saisir("44571", "C", Euros(20));
        QVERIFY(ControlerEquilibre());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void controleEquilibreRefuseDesSommesDifferentes() {
        ViderSaisie();
        Saisir("411001", "D", Euros(120));
        Saisir("707", "C", Euros(100));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!ControlerEquilibre());
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].texte,
                 QStringLiteral("La somme des débits n'égale pas la somme des crédits ! "));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Critique);
    }

    void controleEquilibreUnSensAutreQueDCompteAuCredit() {
        ViderSaisie();
        Saisir("512", "D", Euros(10));
        table::Saisie s = Ligne("707", "C", Euros(10));
        s.wDCEcr = "X";
        AjouterSaisie(s);
        QVERIFY(ControlerEquilibre());
    }

    void echecDuPremierMarqueurTermineSansRienChanger() {
        Vente(Euros(10), Euros(2));
        ViderSaisie();
        Saisir("512", "D", Euros(5));
        Saisir("707", "C", Euros(5));
        const QStringList avant = Vidage();
        QFile::remove(CheminIni());
        QDir().mkdir(CheminIni());
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY_THROWS_EXCEPTION(ui::FinProgramme, Passer());
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].texte,
                 QStringLiteral("Erreur lors de l'écriture dans MAROVAL.INI"));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Aucune);
        OuvrirBase(dossier->Chemin());
        QCOMPARE(Vidage(), avant);
    }

    void echecDuMarqueurDeuxTermineImagesFaitesLivresIntacts() {
        ViderSaisie();
        Saisir("512", "D", Euros(5));
        Saisir("707", "C", Euros(5));
        const QStringList avant = Vidage();
        int appel = 0;
        FichierProfil::AvantEcriture = [&] {
            if (++appel != 2) return;
            QFile::rename(CheminIni(), CheminIni() + ".vu");
            QDir().mkdir(CheminIni());
        };
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY_THROWS_EXCEPTION(ui::FinProgramme, Passer());
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].texte,
                 QStringLiteral("Erreur lors de l'écriture dans MAROVAL.INI"));
        OuvrirBase(dossier->Chemin());
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 0);
        // Seules les images s'ajoutent ; la purge du démarrage suivant les retire.
        for (const QString& l : Difference(avant, Vidage()))
            QVERIFY2(l.contains("=000000|"), qPrintable(l));
        PurgerCleTemporaire();
        QCOMPARE(Vidage(), avant);
        QCOMPARE(FichierProfil(CheminIni() + ".vu").Lire("Securite", "Erreur"),
                 QStringLiteral("1"));
    }

    void compteInconnuErreurExecutionMarqueurResteADeux() {
        ViderSaisie();
        Saisir("512", "D", Euros(5));
        table::Saisie s = Ligne("707", "C", Euros(5));
        s.wNumCpt = "708";
        AjouterSaisie(s);
        const QStringList avant = Vidage();
        QVERIFY_THROWS_EXCEPTION(ErreurExecution, Passer());
        QCOMPARE(Ini("Erreur"), QStringLiteral("2"));
        // Les livres n'ont pas bougé : tout le passage des livres est défait d'un bloc.
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 0);
        RestituerImages(Cle, 1);
        QCOMPARE(Vidage(), avant);
        QVERIFY(Verification());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPasserEcriture t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_passer_ecriture.moc"
