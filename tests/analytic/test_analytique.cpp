// Comptabilité analytique par ses écrans : sections (création, refus, suppression), lignes
// affectées ou à ventiler, ventilation en pourcentages, annulation des affectations d'une
// classe, consultation des sections ; une année avec deux sections recalculée ici à part, et
// les sections reprises par l'exercice suivant.
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/LivresEssai.h"
#include "support/PiloteModal.h"

#include "analytic/Analy0.h"
#include "analytic/Analy1.h"
#include "analytic/Analy1b.h"
#include "analytic/Analy1c.h"
#include "analytic/Analy2.h"
#include "analytic/DonneesAnalytique.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "yearend/DonneesCloture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using essai::Cle;
using essai::Euros;
using ui::Reponse;

namespace {

int Section(double numEcr) {
    table::Ecriture e;
    LireEcriture(Cle, numEcr, e);
    return e.SectionEcr;
}

bool Ventilee(double numEcr, table::Ventilation* v = nullptr) {
    table::Ventilation lue;
    const bool existe = LireVentilation(Cle, numEcr, lue);
    if (v) *v = lue;
    return existe;
}

// Numéro de la ligne de ce compte dans la dernière écriture passée.
double LigneDe(const char* compte) {
    SQLite::Statement q(Base(), "SELECT max(NumEcr) FROM Ecriture WHERE CleCpt = '012024' AND "
                                "NumCptEcr = ?");
    q.bind(1, compte);
    return q.executeStep() ? q.getColumn(0).getDouble() : -1;
}

} // namespace

class TestAnalytique : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    double achat = 0, frais = 0, vente = 0, venteBis = 0;

    static ui::Grille* Tree(QWidget* e, const char* nom) { return e->findChild<ui::Grille*>(nom); }
    static QString Texte(QWidget* e, const char* nom) { return e->findChild<QLabel*>(nom)->text(); }
    static void Cliquer(QWidget* e, const char* nom) {
        if (auto* b = e->findChild<QPushButton*>(nom))
            QTest::mouseClick(b, Qt::LeftButton);
        else
            e->findChild<QRadioButton*>(nom)->click();
    }
    // Choisit un compte dans Tree1 d'Analy1.
    static void ChoisirCompte(QWidget* e, const QString& compte) {
        ui::Grille* t = Tree(e, "Tree1");
        const int ligne = t->ChercherTexte(0, compte);
        QVERIFY2(ligne >= 0, qPrintable(compte));
        QVERIFY(support::CliquerCellule(t, ligne, 1));
    }
    // Tape une section sur la ligne d'écriture de ce numéro.
    static void Affecter(QWidget* e, double numEcr, const QString& texte) {
        ui::Grille* t = Tree(e, "Tree3");
        const int ligne = t->ChercherTexte(0, QString::number(numEcr));
        QVERIFY2(ligne >= 0, qPrintable(QString::number(numEcr)));
        QVERIFY(support::CliquerCellule(t, ligne, 4));
        QVERIFY(t->EditionOuverte());
        support::TaperDansCellule(t, texte);
        QCoreApplication::processEvents();
    }
    // Un pourcentage tapé dans la ventilation, sur la section de ce numéro.
    static void Pourcentage(QWidget* e, int section, const QString& texte) {
        ui::Grille* t = Tree(e, "Tree1");
        const int ligne = t->ChercherDonnee(section);
        QVERIFY(ligne >= 0);
        QVERIFY(support::CliquerCellule(t, ligne, 1));
        QVERIFY(t->EditionOuverte());
        support::TaperDansCellule(t, texte);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        essai::NouvelleSession(dossier->Chemin());
        essai::OuvrirLivres(dossier->Chemin());
        essai::Ecriture("05/03/2024", "A", {{"607", "D", 1000}, {"512", "C", 1000}});
        achat = LigneDe("607");
        essai::Ecriture("06/03/2024", "A", {{"626", "D", 50}, {"512", "C", 50}});
        frais = LigneDe("626");
        essai::Ecriture("07/03/2024", "V", {{"512", "D", 800}, {"707", "C", 800}});
        vente = LigneDe("707");
        essai::Ecriture("08/03/2024", "V", {{"512", "D", 200}, {"707", "C", 200}});
        venteBis = LigneDe("707");
        essai::Ecriture("31/03/2024", "D", {{"699", "D", 10}, {"512", "C", 10}});
        essai::Ecriture("31/03/2024", "D", {{"512", "D", 20}, {"799", "C", 20}});
        analytique::AssurerSectionsReservees(Cle);
        analytique::CreerSection(Cle, 1, "Boutique du centre");
        analytique::CreerSection(Cle, 2, "Marché");
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        FermerBase();
        dossier.reset();
    }

    // Moins de deux sections : le message, puis l'écran sert quand même.
    void moinsDeDeuxSections_informationPuisEcran() {
        analytique::SupprimerSection(Cle, 2);
        ui::RepondreBoite(Reponse::OK);
        ecran::Analy1 e;
        QVERIFY(essai::TextesBoites().first().startsWith(
            "Pour tenir votre comptabilité analytique, vous devez créer au moins deux sections\n"
            "avec un numéro compris entre 01 et 98.\n"));
        QCOMPARE(Tree(&e, "Tree2")->NombreLignes(), 3);
        QCOMPARE(Tree(&e, "Tree2")->Texte(0, 0), QStringLiteral("00"));
        QCOMPARE(Tree(&e, "Tree2")->Texte(0, 1), QStringLiteral("Non affecté"));
        QCOMPARE(Tree(&e, "Tree2")->Texte(2, 1), QStringLiteral("A ventiler"));
        QVERIFY(Tree(&e, "Tree1")->ChercherTexte(0, "607") >= 0);
    }

    // 699 et 799 n'apparaissent jamais ; un compte entièrement affecté n'est plus à gérer.
    void comptes_ni699Ni799_etCompteAffecteCache() {
        ecran::Analy1 e;
        e.show();
        ui::Grille* t = Tree(&e, "Tree1");
        QCOMPARE(t->ChercherTexte(0, "699"), -1);
        Cliquer(&e, "BRTsCptes");
        QCOMPARE(t->ChercherTexte(0, "699"), -1);
        ui::RepondreBoite(Reponse::OK); // changer de classe relit les lignes sans compte choisi
        Cliquer(&e, "BRProduits");
        QCOMPARE(essai::TextesBoites().last(), QStringLiteral("Aucun compte n'est sélectionné."));
        QCOMPARE(t->ChercherTexte(0, "799"), -1);
        QVERIFY(t->ChercherTexte(0, "707") >= 0);
        ui::RepondreBoite(Reponse::OK);
        Cliquer(&e, "BRCharges");
        Cliquer(&e, "BRCptAger");
        ChoisirCompte(&e, "626");
        QCOMPARE(Texte(&e, "Label6"), QStringLiteral("626 Frais postaux"));
        Affecter(&e, frais, "1");
        QCOMPARE(Section(frais), 1);
        Cliquer(&e, "BRTsCptes");
        Cliquer(&e, "BRCptAger");
        QCOMPARE(t->ChercherTexte(0, "626"), -1);
        QVERIFY(t->ChercherTexte(0, "607") >= 0);
    }

    void saisieDUneSection_refus() {
        ecran::Analy1 e;
        e.show();
        ChoisirCompte(&e, "607");
        ui::RepondreBoite(Reponse::OK);
        Affecter(&e, achat, "abc");
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Votre saisie n'est pas correcte, recommencez"});
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Exclamation);
        QVERIFY(Tree(&e, "Tree3")->EditionOuverte());
        ui::RepondreBoite(Reponse::OK);
        support::TaperDansCellule(Tree(&e, "Tree3"), "7");
        QCOMPARE(essai::TextesBoites().last(),
                 QStringLiteral("Cette section analytique n'existe pas, recommencez"));
        support::TaperDansCellule(Tree(&e, "Tree3"), "02");
        QCOMPARE(Section(achat), 2);
    }

    // 99 marque la ligne à ventiler ; 05 sur une ligne à 99 retire sa ventilation.
    void ventiler_puisChangerDeSection() {
        analytique::CreerSection(Cle, 5, "Atelier");
        ecran::Analy1 e;
        e.show();
        ChoisirCompte(&e, "607");
        Affecter(&e, achat, "99");
        QCOMPARE(Section(achat), 99);
        // La ligne quitte les lignes à gérer : elle est dans les lignes à ventiler.
        QCOMPARE(Tree(&e, "Tree3")->ChercherTexte(0, QString::number(achat)), -1);
        Cliquer(&e, "BRAventiler");
        ui::Grille* t = Tree(&e, "Tree3");
        QCOMPARE(t->NombreLignes(), 1);
        QCOMPARE(t->Texte(0, 5), QStringLiteral("A ventiler"));
        auto* ventiler = e.findChild<QPushButton*>("Command6");
        QVERIFY(ventiler->isEnabled());
        QCOMPARE(ventiler->text(), "Ventilation de l'écriture " + QString::number(achat));
        analytique::EnregistrerVentilation(Cle, achat, {});
        Cliquer(&e, "BRTtesEcr");
        QCOMPARE(Tree(&e, "Tree3")->Texte(0, 5), QStringLiteral("Ecriture ventilée"));
        QVERIFY(!ventiler->isEnabled());
        Affecter(&e, achat, "05");
        QCOMPARE(Section(achat), 5);
        QVERIFY(!Ventilee(achat));
        QCOMPARE(Tree(&e, "Tree3")->Texte(0, 4), QStringLiteral("05"));
        QCOMPARE(Tree(&e, "Tree3")->Texte(0, 5), QStringLiteral("Atelier"));
    }

    void sections_creerModifierSupprimer() {
        ecran::Analy1 e;
        e.show();
        // Le dialogue, avec ses refus, puis la création.
        support::PiloteModal pilote;
        const auto taper = [](const char* numero, const char* nom) {
            return [numero, nom](QWidget* f) {
                f->findChild<QLineEdit*>("Text1")->setText(numero);
                f->findChild<QLineEdit*>("Text2")->setText(nom);
                support::Cliquer("Command1")(f);
            };
        };
        pilote.Attendre("Analy1b", taper("99", "Dépôt"))
            .AttendreBoite(
                "Le numéro de section est incorrect.\nIl doit être compris entre 1 et 98.", "OK")
            .Attendre("Analy1b", taper("3", ""))
            .AttendreBoite("La saisie du libellé est obligatoire.", "OK")
            .Attendre("Analy1b", taper("2", "Dépôt"))
            .AttendreBoite("Cette section analytique existe déjà !", "OK")
            .Attendre("Analy1b", taper("3", "Dépôt"));
        pilote.Demarrer();
        Cliquer(&e, "BCreerSect");
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(session().ModeCreSociete, std::int16_t(1));
        QString nom;
        QVERIFY(analytique::SectionExiste(Cle, 3, &nom));
        QCOMPARE(nom, QStringLiteral("Dépôt"));
        ui::Grille* sections = Tree(&e, "Tree2");
        QCOMPARE(sections->Texte(sections->LigneCourante(), 0), QStringLiteral("03"));

        // Modifier : rien de choisi, puis 00, puis une section.
        sections->SelectionnerLigne(sections->LigneCourante(), false);
        ui::RepondreBoite(Reponse::OK);
        Cliquer(&e, "BModifSect");
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Sélectionnez d'abord une section analytique."));
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Attention"));
        QVERIFY(support::CliquerCellule(sections, 0, 1));
        ui::RepondreBoite(Reponse::OK);
        Cliquer(&e, "BModifSect");
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Vous ne pouvez pas modifier les sections 00 et 99."));
        ui::RepondreBoite(Reponse::OK);
        Cliquer(&e, "BSupprSect");
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Vous ne pouvez pas supprimer les sections 00 et 99."));
        QVERIFY(support::CliquerCellule(sections, sections->ChercherTexte(0, "03"), 1));
        support::PiloteModal renommer;
        renommer.Attendre("Analy1b", [](QWidget* f) {
            if (f->findChild<QLineEdit*>("Text1")->isEnabled() ||
                f->findChild<QLineEdit*>("Text1")->text() != "03")
                support::PiloteModal::Actif()->Echouer("numéro non verrouillé");
            f->findChild<QLineEdit*>("Text2")->setText("Dépôt de Lyon");
            support::Cliquer("Command1")(f);
        });
        renommer.Demarrer();
        Cliquer(&e, "BModifSect");
        QVERIFY2(renommer.Reussi(), qPrintable(renommer.Echec()));
        QVERIFY(analytique::SectionExiste(Cle, 3, &nom));
        QCOMPARE(nom, QStringLiteral("Dépôt de Lyon"));

        // Supprimer : la question, Non puis Oui.
        QVERIFY(support::CliquerCellule(sections, sections->ChercherTexte(0, "03"), 1));
        ui::RepondreBoite(Reponse::Non);
        Cliquer(&e, "BSupprSect");
        QCOMPARE(
            ui::JournalBoites().last().texte,
            QStringLiteral("Voulez-vous vraiment supprimer la section \"03 Dépôt de Lyon\" ?"));
        QVERIFY(analytique::SectionExiste(Cle, 3));
        ui::RepondreBoite(Reponse::Oui);
        Cliquer(&e, "BSupprSect");
        QVERIFY(!analytique::SectionExiste(Cle, 3));
    }

    // Une section présente dans une ligne, ou seulement dans une ventilation : refusée.
    void supprimerSectionUtilisee_refusee() {
        analytique::AffecterLigne(Cle, achat, 99);
        std::array<Montant, 99> parts{};
        parts[2] = Euros(1000);
        analytique::EnregistrerVentilation(Cle, achat, parts);
        analytique::AffecterLigne(Cle, frais, 1);
        ecran::Analy1 e;
        e.show();
        ui::Grille* sections = Tree(&e, "Tree2");
        for (const char* numero : {"01", "02"}) {
            QVERIFY(support::CliquerCellule(sections, sections->ChercherTexte(0, numero), 1));
            ui::RepondreBoite(Reponse::OK);
            Cliquer(&e, "BSupprSect");
            const ui::EntreeJournal b = ui::JournalBoites().last();
            QCOMPARE(b.titre, QStringLiteral("Avertissement"));
            QCOMPARE(b.texte, QStringLiteral("La section \"%1 %2\" est présente dans l'affectation "
                                             "\nanalytique des écritures.\n\nPour supprimer cette "
                                             "section, vous devez d'abord modifier\nles écritures "
                                             "qui ont été affectées à cette section.")
                                  .arg(numero, numero == QLatin1String("01") ? "Boutique du centre"
                                                                             : "Marché"));
        }
        QVERIFY(analytique::SectionExiste(Cle, 1));
        QVERIFY(analytique::SectionExiste(Cle, 2));
    }

    // L'annulation des charges ne touche ni les produits ni leurs ventilations.
    void annulerLesCharges_produitsIntacts() {
        analytique::AffecterLigne(Cle, achat, 99);
        analytique::EnregistrerVentilation(Cle, achat, {});
        analytique::AffecterLigne(Cle, frais, 2);
        analytique::AffecterLigne(Cle, vente, 99);
        std::array<Montant, 99> parts{};
        parts[1] = Euros(800);
        analytique::EnregistrerVentilation(Cle, vente, parts);
        analytique::AffecterLigne(Cle, venteBis, 1);
        ecran::Analy1 e;
        e.show();
        ui::RepondreBoite(Reponse::Non);
        Cliquer(&e, "Command7");
        const ui::EntreeJournal b = ui::JournalBoites().last();
        QCOMPARE(b.titre, QStringLiteral("Attention"));
        QVERIFY(b.texte.startsWith("Ce choix annule TOUTES les affectations analytiques.\n"));
        QCOMPARE(b.boutonParDefaut, 2);
        QCOMPARE(Section(achat), 99);
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK); // aucun compte choisi pour relire les lignes
        Cliquer(&e, "Command7");
        QCOMPARE(Section(achat), 0);
        QCOMPARE(Section(frais), 0);
        QVERIFY(!Ventilee(achat));
        QCOMPARE(Section(vente), 99);
        QCOMPARE(Section(venteBis), 1);
        table::Ventilation v;
        QVERIFY(Ventilee(vente, &v));
        QCOMPARE(v.Ventil[1], Euros(800));
    }

    // Ventilation neuve : 100 % à répartir, le montant entier, validation impossible ; 60 et
    // 40 la permettent, et les pourcentages reviennent à la réouverture.
    void ventilation_soixanteQuarante() {
        analytique::AffecterLigne(Cle, achat, 99);
        {
            ecran::Analy1c c(nullptr, achat, "rappel");
            c.show();
            QCOMPARE(c.windowTitle(),
                     QStringLiteral("Ecriture à ventiler dans plusieurs sections"));
            QCOMPARE(Texte(&c, "LRestePourc"), QStringLiteral("100,00%"));
            QCOMPARE(Texte(&c, "LRestVal"), essai::AfficheEuros(1000));
            auto* valider = c.findChild<QPushButton*>("Command5");
            QVERIFY(!valider->isEnabled());
            QCOMPARE(Tree(&c, "Tree1")->NombreLignes(), 2);
            Pourcentage(&c, 1, "60");
            QCOMPARE(Texte(&c, "LRestePourc"), QStringLiteral("40,00%"));
            QCOMPARE(Texte(&c, "LRestVal"), essai::AfficheEuros(400));
            QVERIFY(!valider->isEnabled());
            Pourcentage(&c, 2, "40%");
            QCOMPARE(Texte(&c, "LRestePourc"), QStringLiteral("0,00%"));
            QVERIFY(valider->isEnabled());
            QTest::mouseClick(valider, Qt::LeftButton);
        }
        table::Ventilation v;
        QVERIFY(Ventilee(achat, &v));
        QCOMPARE(v.Ventil[1], Euros(600));
        QCOMPARE(v.Ventil[2], Euros(400));
        ecran::Analy1c encore(nullptr, achat, "rappel");
        ui::Grille* t = Tree(&encore, "Tree1");
        QCOMPARE(t->Texte(t->ChercherDonnee(1), 2), QStringLiteral("60,00%"));
        QCOMPARE(t->Texte(t->ChercherDonnee(2), 3), essai::AfficheEuros(400));
        QCOMPARE(Texte(&encore, "LRestePourc"), QStringLiteral("0,00%"));
    }

    // 70 puis 40 : le second est refusé et revient à zéro.
    void ventilation_auDelaDeCent() {
        analytique::AffecterLigne(Cle, achat, 99);
        ecran::Analy1c c(nullptr, achat, "rappel");
        c.show();
        Pourcentage(&c, 1, "70");
        ui::RepondreBoite(Reponse::OK);
        Pourcentage(&c, 2, "40");
        QCOMPARE(essai::TextesBoites(), QStringList{"Vous êtes en train de dépasser les 100% !"});
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Attention"));
        ui::Grille* t = Tree(&c, "Tree1");
        QCOMPARE(t->Texte(t->ChercherDonnee(2), 2), QStringLiteral("0,00%"));
        QCOMPARE(Texte(&c, "LRestePourc"), QStringLiteral("30,00%"));
        QVERIFY(!c.findChild<QPushButton*>("Command5")->isEnabled());
    }

    // Un tiers sur trois sections : 33,33 % trois fois laisse 0,01 % ; 33,34 % ferme.
    void ventilation_tiersExact() {
        analytique::CreerSection(Cle, 3, "Dépôt");
        analytique::AffecterLigne(Cle, achat, 99);
        ecran::Analy1c c(nullptr, achat, "rappel");
        c.show();
        for (int s : {1, 2, 3})
            Pourcentage(&c, s, "33,33");
        QCOMPARE(Texte(&c, "LRestePourc"), QStringLiteral("0,01%"));
        QVERIFY(!c.findChild<QPushButton*>("Command5")->isEnabled());
        Pourcentage(&c, 3, "33.34");
        QCOMPARE(Texte(&c, "LRestePourc"), QStringLiteral("0,00%"));
        QVERIFY(c.findChild<QPushButton*>("Command5")->isEnabled());
    }

    // Retour après une saisie : rien d'écrit.
    void ventilation_retourSansRien() {
        analytique::AffecterLigne(Cle, achat, 99);
        ecran::Analy1c c(nullptr, achat, "rappel");
        c.show();
        Pourcentage(&c, 1, "100");
        QVERIFY(c.findChild<QPushButton*>("Command5")->isEnabled());
        Cliquer(&c, "Command3");
        QVERIFY(!Ventilee(achat));
    }

    // Par l'écran : la ligne à ventiler, le bouton, le rappel de la ligne, puis la liste.
    void ventilationDepuisLaListe() {
        ecran::Analy1 e;
        e.show();
        ChoisirCompte(&e, "607");
        Affecter(&e, achat, "99");
        Cliquer(&e, "BRAventiler");
        support::PiloteModal pilote;
        pilote.Attendre("Analy1c", [&](QWidget* f) {
            const QString rappel = f->findChild<QLabel*>("Label1")->text();
            if (rappel != QString::number(achat) + "    05/03/2024    " +
                              Tree(&e, "Tree3")->Texte(0, 2) + "    " + essai::AfficheEuros(1000))
                support::PiloteModal::Actif()->Echouer("rappel : " + rappel);
            Pourcentage(f, 1, "25");
            Pourcentage(f, 2, "75");
            support::Cliquer("Command5")(f);
        });
        pilote.Demarrer();
        Cliquer(&e, "Command6");
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        table::Ventilation v;
        QVERIFY(Ventilee(achat, &v));
        QCOMPARE(v.Ventil[2], Euros(750));
        QCOMPARE(Tree(&e, "Tree3")->Texte(0, 5), QStringLiteral("Ecriture ventilée"));
    }

    // Aucune ligne affectée : rien pour les sections choisies, tout « non affecté ».
    void consultation_rienDAffecte() {
        ecran::Analy2 e;
        e.show();
        ui::RepondreBoite(Reponse::OK);
        Cliquer(&e, "Command2");
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Sélectionnez d'abord une ou plusieurs sections !"});
        QVERIFY(support::CliquerCellule(Tree(&e, "Tree1"), 0, 1));
        Cliquer(&e, "Command2");
        ui::Grille* comptes = Tree(&e, "Tree2");
        QCOMPARE(comptes->NombreLignes(), 2); // 607 et 626, ni 699
        QCOMPARE(Tree(&e, "Tree3")->Texte(0, 0), QStringLiteral("Totaux :"));
        QCOMPARE(Tree(&e, "Tree3")->Texte(0, 5), essai::AfficheEuros(0));
        QCOMPARE(Texte(&e, "Label4"), "Notez qu'un total de " + essai::AfficheEuros(1050) +
                                          " n'a pas encore été affecté.");
    }

    // Une année avec deux sections : une charge ventilée 60/40, un produit à une section,
    // les sommes recalculées ici depuis les lignes ; les sections passent à l'exercice
    // suivant.
    void anneeAvecDeuxSections() {
        analytique::AffecterLigne(Cle, achat, 99);
        std::array<Montant, 99> parts{};
        parts[1] = Euros(600);
        parts[2] = Euros(400);
        analytique::EnregistrerVentilation(Cle, achat, parts);
        analytique::AffecterLigne(Cle, frais, 2);
        analytique::AffecterLigne(Cle, vente, 1);

        ecran::Analy2 e;
        e.show();
        ui::Grille* sections = Tree(&e, "Tree1");
        QVERIFY(support::CliquerCellule(sections, sections->ChercherDonnee(1), 1));
        Cliquer(&e, "Command2");
        ui::Grille* comptes = Tree(&e, "Tree2");
        const auto ligneDe = [&](const char* compte) {
            QStringList l;
            const int i = comptes->ChercherTexte(0, compte);
            for (int c = 2; c < 6; ++c)
                l << comptes->Texte(i, c);
            return l;
        };
        // 607 : 1 000 ventilés, 600 à la section choisie, 400 à une autre.
        QCOMPARE(ligneDe("607"), (QStringList{essai::AfficheEuros(1000), essai::AfficheEuros(0),
                                              essai::AfficheEuros(400), essai::AfficheEuros(600)}));
        QCOMPARE(ligneDe("626"), (QStringList{essai::AfficheEuros(50), essai::AfficheEuros(0),
                                              essai::AfficheEuros(50), essai::AfficheEuros(0)}));
        QCOMPARE(Texte(&e, "Label3"), "La(les) section(s) sélectionnée(s) totalisent " +
                                          essai::AfficheEuros(600) +
                                          " soit 57,14% du "
                                          "total (" +
                                          essai::AfficheEuros(1050) + ").");
        QCOMPARE(Texte(&e, "Label4"), QString());
        // Les produits : 800 à la section 1, 200 non affectés.
        Cliquer(&e, "BRProduits");
        Cliquer(&e, "Command2");
        QCOMPARE(comptes->NombreLignes(), 1); // ni 799
        QCOMPARE(ligneDe("707"), (QStringList{essai::AfficheEuros(1000), essai::AfficheEuros(200),
                                              essai::AfficheEuros(0), essai::AfficheEuros(800)}));
        QCOMPARE(Texte(&e, "Label4"), "Notez qu'un total de " + essai::AfficheEuros(200) +
                                          " n'a pas encore été affecté.");

        // L'exercice suivant reprend les sections.
        table::Constante k;
        LireConstante(Cle, k);
        cloture::CreerPlanSuivant(Cle, "012025", k);
        cloture::TransfererSoldes(Cle, "012025", {});
        QString nom;
        QVERIFY(analytique::SectionExiste("012025", 1, &nom));
        QCOMPARE(nom, QStringLiteral("Boutique du centre"));
        QVERIFY(analytique::SectionExiste("012025", 2));
    }

    void menu_ouvreSesEcrans() {
        support::PiloteModal pilote;
        pilote.Attendre("Analy0", support::Cliquer("Command1"))
            .Attendre("Analy1", support::Cliquer("Command3"))
            .Attendre("Analy0", support::Cliquer("Command2"))
            .Attendre("Analy2", support::Cliquer("Command3"))
            .Attendre("Analy0", support::Cliquer("Command3"));
        pilote.Demarrer();
        ecran::Analy0 menu;
        QCOMPARE(menu.windowTitle(), QStringLiteral("Comptabilité Analytique"));
        menu.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestAnalytique test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_analytique.moc"
