// Bilan d'ouverture : montants tapés dans les listes (validation, totaux de l'exercice,
// collectifs des clients et fournisseurs, avertissements de signe), équilibre et clôture
// définitive, totaux écrits par "Retour" seulement, tailles gardées.

#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "base/Reglages.h"
#include "chart/GestionPlan.h"
#include "chart/Prembil.h"
#include "session/SaisieMontant.h"
#include "ui/Aide.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

using namespace essai;
using ui::Reponse;

namespace {

const QString Positif =
    QStringLiteral("Ce compte est normalement positif.\nEtes-vous sûr de votre signe ?");
const QString Negatif =
    QStringLiteral("Ce compte est normalement négatif.\nEtes-vous sûr de votre signe ?");

} // namespace

class TestPrembil : public QObject {
    Q_OBJECT
    CadreEssai cadre;
    std::unique_ptr<ecran::Prembil> e;

    template <class T> T* W(const char* nom) { return e->findChild<T*>(QString::fromLatin1(nom)); }
    ui::Grille* Actif() { return W<ui::Grille>("Tree1"); }
    ui::Grille* Passif() { return W<ui::Grille>("Tree2"); }
    QString Texte(const char* label) { return W<QLabel>(label)->text(); }

    void Ouvrir() { e = MontrerEcran<ecran::Prembil>(); }
    // Clic sur la cellule "Solde Début" du compte, puis le montant et Entrée.
    bool Saisir(ui::Grille* g, const QString& numero, const QString& montant) {
        const int ligne = g->ChercherTexte(0, numero);
        if (ligne < 0) return false;
        support::CliquerCellule(g, ligne, 2);
        if (!g->EditionOuverte()) return false;
        return support::TaperDansCellule(g, montant);
    }
    QString Cellule(ui::Grille* g, const QString& numero) {
        return g->Texte(g->ChercherTexte(0, numero), 2);
    }

private slots:
    void init() {
        cadre.Ouvrir();
        for (auto [n, l] : QList<QPair<const char*, const char*>>{{"101", "Capital"},
                                                                  {"119", "Report débiteur"},
                                                                  {"164", "Emprunt"},
                                                                  {"2154", "Matériel"},
                                                                  {"2815", "Amortissements"},
                                                                  {"411DUPON", "Dupont"},
                                                                  {"411MARTI", "Martin"},
                                                                  {"401BOIS", "Bois et fils"},
                                                                  {"512", "Banque"},
                                                                  {"707", "Ventes"}})
            Compte(QString::fromUtf8(n), QString::fromUtf8(l));
    }
    void cleanup() {
        e.reset();
        cadre.Fermer();
    }

    void ouverture_deuxCotesSansLesCollectifs() {
        Ouvrir();
        QCOMPARE(e->objectName(), QStringLiteral("Prembil"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Bilan d'ouverture"));
        for (ui::Grille* g : {Actif(), Passif()}) {
            QStringList titres;
            for (int c = 0; c < g->NombreColonnes(); ++c)
                titres << g->Titre(c);
            QCOMPARE(titres, QStringList({"Numéro", "Libellé", "Solde Début"}));
        }
        // Les quatre comptes fixes existent désormais ; 410 et 400 ne se montrent pas.
        for (const char* n : {"400", "410", "699", "799"})
            QVERIFY(CompteExiste(n));
        QStringList actif, passif;
        for (int i = 0; i < Actif()->NombreLignes(); ++i)
            actif << Actif()->Texte(i, 0);
        for (int i = 0; i < Passif()->NombreLignes(); ++i)
            passif << Passif()->Texte(i, 0);
        QCOMPARE(actif, QStringList({"2154", "2815", "411DUPON", "411MARTI", "512"}));
        QCOMPARE(passif, QStringList({"101", "119", "164", "401BOIS"}));
        QCOMPARE(Cellule(Actif(), "512"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte("Label3"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte("Label4"), QStringLiteral("0,00 E"));
        QVERIFY(!W<QLabel>("Label7")->isVisible());
        QVERIFY(!W<QPushButton>("Command1")->isEnabled());
        QCOMPARE(W<QPushButton>("Command1")->text(), QStringLiteral("Cloturer le bilan ?"));
    }

    void saisie_compteEtTotauxDeLExercice() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "512", "1500,50"));
        QCOMPARE(Cellule(Actif(), "512"), QStringLiteral("1 500,50 E"));
        const table::Compte c = LireCpt("512");
        QCOMPARE(c.Sde, Euros(1500.50));
        QCOMPARE(c.Solde, Euros(1500.50));
        const table::Constante k = Constante();
        QCOMPARE(k.SDE1, Euros(1500.50));
        QCOMPARE(k.E1, Euros(1500.50));
        QCOMPARE(k.MD, Euros(1500.50));
        QCOMPARE(k.SDR1, Montant());
        QCOMPARE(Texte("Label3"), QStringLiteral("1 500,50 E"));
        QVERIFY(Saisir(Passif(), "164", "12.5"));
        QCOMPARE(Cellule(Passif(), "164"), QStringLiteral("12,50 E"));
        QCOMPARE(Constante().SDR1, Euros(12.5));
        QCOMPARE(Constante().R1, Euros(12.5));
        QCOMPARE(Constante().DAP, Euros(12.5));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void saisie_videLeMessageEtLaCelluleResteOuverte() {
        Ouvrir();
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(!Saisir(Actif(), "512", ""));
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Entrez un montant SVP.")});
        QVERIFY(Actif()->EditionOuverte());
        QVERIFY(support::TaperDansCellule(Actif(), "10"));
        QCOMPARE(LireCpt("512").Sde, Euros(10));
    }

    void saisie_illisibleLeMessageZeroMontreRienEcrit() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "512", "100"));
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(Saisir(Actif(), "512", "abc"));
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("Votre saisie n'est pas correcte, recommencez")});
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Exclamation);
        QCOMPARE(Cellule(Actif(), "512"), QStringLiteral("0,00 E"));
        QCOMPARE(LireCpt("512").Sde, Euros(100));
        QCOMPARE(Constante().SDE1, Euros(100));
        QCOMPARE(Texte("Label3"), QStringLiteral("100,00 E"));
    }

    void saisie_retourALAncienMontantLaisseLesTotaux() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "2154", "100"));
        QVERIFY(Saisir(Actif(), "2154", "250"));
        QVERIFY(Saisir(Actif(), "2154", "100"));
        QVERIFY(Saisir(Actif(), "2154", "100"));
        const table::Constante k = Constante();
        QCOMPARE(k.SDE1, Euros(100));
        QCOMPARE(k.E1, Euros(100));
        QCOMPARE(k.BIENS, Euros(100));
        QCOMPARE(Texte("Label3"), QStringLiteral("100,00 E"));
    }

    void client_collectifSuitSansSAdditionner() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "411DUPON", "100"));
        QVERIFY(Saisir(Actif(), "411DUPON", "150"));
        QVERIFY(Saisir(Actif(), "411MARTI", "40"));
        QCOMPARE(LireCpt("410").Sde, Euros(190));
        QCOMPARE(LireCpt("410").Solde, Euros(190));
        QCOMPARE(Constante().SDE1, Euros(190));
        QCOMPARE(Constante().DAR, Euros(190));
    }

    void fournisseur_collectif400() {
        Ouvrir();
        QVERIFY(Saisir(Passif(), "401BOIS", "300"));
        QCOMPARE(LireCpt("400").Sde, Euros(300));
        QCOMPARE(LireCpt("410").Sde, Montant());
        QCOMPARE(Texte("Label4"), QStringLiteral("300,00 E"));
    }

    void signe_avertissementsSelonLaFonctionDuCompte() {
        Ouvrir();
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(Saisir(Actif(), "512", "-20"));
        QCOMPARE(TextesBoites(), QStringList{Positif});
        QCOMPARE(ui::JournalBoites().first().boutons, ui::Boutons::OK);
        // Le montant tient et le total le prend.
        QCOMPARE(LireCpt("512").Sde, Euros(-20));
        QCOMPARE(Texte("Label3"), QStringLiteral("-20,00 E"));
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(Saisir(Actif(), "2815", "500"));
        QCOMPARE(TextesBoites().last(), Negatif);
        QVERIFY(Saisir(Actif(), "2815", "-500"));
        QCOMPARE(TextesBoites().size(), 2);
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(Saisir(Passif(), "119", "80"));
        QCOMPARE(TextesBoites().last(), Negatif);
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(Saisir(Passif(), "164", "-1"));
        QCOMPARE(TextesBoites().last(), Positif);
        QCOMPARE(TextesBoites().size(), 4);
        QCOMPARE(Texte("Label3"), QStringLiteral("-520,00 E"));
        QCOMPARE(Texte("Label4"), QStringLiteral("79,00 E"));
    }

    void equilibre_cloturePuisLectureSeule() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "512", "1000"));
        QVERIFY(!W<QPushButton>("Command1")->isEnabled());
        QVERIFY(Saisir(Passif(), "101", "1000"));
        QVERIFY(W<QLabel>("Label7")->isVisible());
        QVERIFY(W<QPushButton>("Command1")->isEnabled());
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        support::CliquerBouton(e.get(), "Command1");
        QCOMPARE(TextesBoites(),
                 QStringList({QStringLiteral("Voulez-vous clore DEFINITIVEMENT votre bilan "
                                             "d'ouverture ?"),
                              QStringLiteral("Votre bilan d'ouverture est maintenant clos")}));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Maroval"));
        QVERIFY(Constante().OuvertureClos);
        QVERIFY(!e->isVisible());
        // Revenu sur l'écran : consultation seule.
        Ouvrir();
        QVERIFY(!W<QLabel>("Label7")->isVisible());
        QVERIFY(!W<QPushButton>("Command1")->isEnabled());
        QCOMPARE(Cellule(Actif(), "512"), QStringLiteral("1 000,00 E"));
        support::CliquerCellule(Actif(), Actif()->ChercherTexte(0, "512"), 2);
        QVERIFY(!Actif()->EditionOuverte());
        Actif()->setFocus();
        QTest::keyClick(Actif(), Qt::Key_Return);
        QVERIFY(!Actif()->EditionOuverte());
        support::CliquerCellule(Passif(), 0, 2);
        QVERIFY(!Passif()->EditionOuverte());
    }

    void cloture_nonFermeSansClore() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "512", "10"));
        QVERIFY(Saisir(Passif(), "101", "10"));
        ui::RepondreBoite(Reponse::Non);
        support::CliquerBouton(e.get(), "Command1");
        QVERIFY(!Constante().OuvertureClos);
        QVERIFY(!e->isVisible());
    }

    void zeros_sansEcritureClotureImpossible() {
        Ouvrir();
        QVERIFY(!W<QPushButton>("Command1")->isEnabled());
        QVERIFY(Saisir(Actif(), "512", "10"));
        QVERIFY(Saisir(Actif(), "512", "0"));
        QVERIFY(!W<QPushButton>("Command1")->isEnabled());
        QVERIFY(!W<QLabel>("Label7")->isVisible());
    }

    void zeros_avecEcrituresClotureDUnBilanVide() {
        table::Constante k = Constante();
        k.LastNumEcrit = 12;
        MajConstante(Cle, k);
        Ouvrir();
        QVERIFY(W<QPushButton>("Command1")->isEnabled());
        QVERIFY(W<QLabel>("Label7")->isVisible());
    }

    void entree_ouvreLaCelluleDeLaLigneCourante() {
        Ouvrir();
        Actif()->setFocus();
        Actif()->FixerLigneCourante(Actif()->ChercherTexte(0, "2154"));
        QTest::keyClick(Actif(), Qt::Key_Return);
        QVERIFY(Actif()->EditionOuverte());
        QCOMPARE(Actif()->ColonneEditee(), 2);
        QVERIFY(support::TaperDansCellule(Actif(), "42"));
        QCOMPARE(LireCpt("2154").Sde, Euros(42));
        // Une ligne plus bas, Entrée rouvre une cellule.
        Actif()->setFocus();
        QTest::keyClick(Actif(), Qt::Key_Down);
        QTest::keyClick(Actif(), Qt::Key_Return);
        QVERIFY(Actif()->EditionOuverte());
        Actif()->AnnulerEdition();
    }

    void retour_ecritLesTotauxQuitterNon() {
        Ouvrir();
        QVERIFY(Saisir(Actif(), "512", "70"));
        QVERIFY(Saisir(Passif(), "101", "30"));
        table::Constante k = Constante();
        k.SDE1 = Euros(1);
        k.SDR1 = Euros(2);
        MajConstante(Cle, k);
        support::CliquerBouton(e.get(), "Command4");
        QCOMPARE(Constante().SDE1, Euros(1));
        QCOMPARE(Constante().SDR1, Euros(2));
        Ouvrir();
        support::CliquerBouton(e.get(), "Command2");
        QCOMPARE(Constante().SDE1, Euros(70));
        QCOMPARE(Constante().SDR1, Euros(30));
        QVERIFY(!e->isVisible());
    }

    void tailles_garderLaFenetreEtLesColonnes() {
        Ouvrir();
        e->resize(1001, 602);
        Actif()->FixerLargeurColonne(1, 333);
        support::CliquerBouton(e.get(), "Command4");
        QCOMPARE(LireReglage("PrembilForm", "width"), QStringLiteral("1001"));
        QCOMPARE(LireReglage("PrembilForm", "height"), QStringLiteral("602"));
        QCOMPARE(LireReglage("PrembilTree1", "col1"), QStringLiteral("333"));
        QVERIFY(!LireReglage("PrembilTree2", "col0").isEmpty());
        Ouvrir();
        QCOMPARE(e->width(), 1001);
        QCOMPARE(Actif()->LargeurColonne(1), 333);
    }

    void aide_contexteSix() {
        Ouvrir();
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(ui::JournalDialogues().last().dialogue, ui::Dialogue::Aide);
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("6"));
        if (QDialog* aide = ui::FenetreAide()) aide->close();
    }

    void lecture_montantsLisibles() {
        QVERIFY(MontantLisible("1 234,56"));
        QVERIFY(MontantLisible("-12,5"));
        QVERIFY(MontantLisible("1 500,00 E"));
        QVERIFY(MontantLisible(",5"));
        QVERIFY(!MontantLisible("abc"));
        QVERIFY(!MontantLisible("12a"));
        QVERIFY(!MontantLisible("1,2,3"));
        QVERIFY(!MontantLisible("-"));
        QVERIFY(!MontantLisible("12-"));
        QVERIFY(!MontantLisible("1234567890123456"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPrembil t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_prembil.moc"
