// Passage d'une écriture, côté reprise : marqueur de maroval.ini et images des comptes,
// budgets et constante dans l'ordre des étapes, marqueur écrit sans toucher au reste du
// fichier, échecs du marqueur et compte inconnu.

#include "PassageEssai.h"

#include "posting/PasserEcriture.h"
#include "posting/Securite.h"
#include "posting/Verification.h"
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

class TestPasserEcritureMarqueur : public BancPassage {
    Q_OBJECT
    QList<Photo> photos;

    ino_t Inode() {
        struct stat e {};
        ::stat(QFile::encodeName(CheminIni()).constData(), &e);
        return e.st_ino;
    }

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

private slots:
    void init() { Ouvrir(); }
    void cleanup() { Fermer(); }

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
    TestPasserEcritureMarqueur t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_passer_ecriture_marqueur.moc"
