#include "consultation/ConsCpt.h"

#include "consultation/DonneesComptes.h"
#include "consultation/Export.h"
#include "consultation/LignesCompte.h"
#include "consultation/ListeComptes.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/BoiteAide.h"
#include "ui/Personalisation.h"
#include "ui_ConsCpt.h"

#include <optional>

namespace ecran {

namespace {

const QString texteAide = QStringLiteral(
    "Cliquez sur un compte de la liste, ou tapez son numéro puis Entrée.|Choisissez ensuite ce "
    "que vous voulez voir : toutes les écritures, celles d'un mois (choisi dans la liste des "
    "mois) ou les cumuls de chaque mois.|Le bouton Export vers Excel enregistre ce qui est "
    "affiché dans un fichier que votre tableur sait ouvrir.");

} // namespace

ConsCpt::ConsCpt(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::ConsCpt>()) {
    FixerContexteAide(14);
    ui->setupUi(this);
    // Entrée dans un champ ne doit actionner aucun bouton, même avant exec().
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    auto* aide = new ui::BoiteAide(ui->CadreAide);
    aide->setObjectName(QStringLiteral("BoiteAide1"));
    ui->CadreAide->layout()->addWidget(aide);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    ui->Tree2->FixerColonnes(TitresLignesCompte());
    ui->Tree3->FixerColonnes({QStringLiteral("Mois"), QStringLiteral("Débits"),
                              QStringLiteral("Crédits"), QStringLiteral("Solde mensuel"),
                              QStringLiteral("Solde cumulé")});
    const int largeurs1[] = {90, 260, 120};
    for (int c = 0; c < 3; ++c)
        ui->Tree1->FixerLargeurColonne(c, largeurs1[c]);
    const int largeurs2[] = {60, 85, 235, 100, 100, 115};
    for (int c = 0; c < 6; ++c)
        ui->Tree2->FixerLargeurColonne(c, largeurs2[c]);
    for (int c = 0; c < 5; ++c)
        ui->Tree3->FixerLargeurColonne(c, c == 0 ? 110 : 130);
    for (int m = 1; m <= 12; ++m)
        ui->LB_Mois->addItem(NomMois(m));

    connect(ui->Text1, &QLineEdit::textEdited, this, &ConsCpt::Text1_Change);
    connect(ui->Text1, &QLineEdit::returnPressed, this, &ConsCpt::Text1_KeyPress);
    connect(ui->Tree1, &ui::Grille::selectionChangee, this, &ConsCpt::Tree1_SelectionChange);
    connect(ui->Command1, &QPushButton::clicked, this, &ConsCpt::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &ConsCpt::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &ConsCpt::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &ConsCpt::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &ConsCpt::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &ConsCpt::Command6_Click);
    connect(ui->BTExport, &QPushButton::clicked, this, &ConsCpt::BTExport_Click);
    Form_Load();
}

ConsCpt::~ConsCpt() = default;

void ConsCpt::Form_Load() {
    if (auto* aide = findChild<ui::BoiteAide*>(QStringLiteral("BoiteAide1")))
        aide->FixerMessageAide(texteAide);
    ui::RestaurerPersonalisations(this, {ui->Tree1, ui->Tree2, ui->Tree3});
    RemplirListeComptes(ui->Tree1);
}

void ConsCpt::Text1_Change() {
    // Les minuscules deviennent des majuscules à la frappe.
    const int curseur = ui->Text1->cursorPosition();
    const QString tape = ui->Text1->text().toUpper();
    if (tape != ui->Text1->text()) {
        ui->Text1->setText(tape);
        ui->Text1->setCursorPosition(curseur);
    }
    for (int i = 0; i < ui->Tree1->NombreLignes(); ++i) {
        if (ui->Tree1->Texte(i, 0) >= tape) {
            ui->Tree1->FixerLigneCourante(i);
            ui->Tree1->SelectionnerLigne(i, true);
            ui->Tree1->RendreVisible(i);
            return;
        }
    }
}

void ConsCpt::Text1_KeyPress() {
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne >= 0 && ui->Tree1->Texte(ligne, 0).trimmed() == ui->Text1->text().trimmed())
        Tree1_SelectionChange();
}

void ConsCpt::Tree1_SelectionChange() {
    const QList<int> choisies = ui->Tree1->LignesSelectionnees();
    if (choisies.isEmpty()) return;
    const QString numero = ui->Tree1->DonneeLigne(choisies.first()).toString();
    QString libelle;
    if (!MontrerChiffresCompte(numero, ui->Label3, ui->Label5, ui->Label7, ui->Label9, &libelle))
        return;
    compte = numero;
    ui->Label10->setText(numero + QStringLiteral("   ") + libelle);
    nomExport = numero + QLatin1Char('-') + libelle;
    for (QPushButton* b : {ui->Command1, ui->Command3, ui->Command6, ui->BTExport})
        b->setEnabled(true);
}

void ConsCpt::AfficherListeComptes(bool visible) {
    for (QWidget* w : {static_cast<QWidget*>(ui->Tree1), static_cast<QWidget*>(ui->LB_Mois),
                       static_cast<QWidget*>(ui->Text1), static_cast<QWidget*>(ui->Label11)})
        w->setVisible(visible);
}

void ConsCpt::Command1_Click() {
    ui->Label1->setText(QStringLiteral("Liste des écritures passées sur le compte"));
    AffEcritureCpt(compte, 0);
    vue = Vue::Toutes;
}

void ConsCpt::Command3_Click() {
    int mois = 0;
    if (ui->Tree3->isVisible()) {
        const QList<int> choisies = ui->Tree3->LignesSelectionnees();
        if (!choisies.isEmpty()) mois = ui->Tree3->DonneeLigne(choisies.first()).toInt();
    } else if (QListWidgetItem* l = ui->LB_Mois->currentItem(); l && l->isSelected()) {
        mois = ui->LB_Mois->currentRow() + 1;
    }
    if (mois == 0) {
        ui::Boite(QStringLiteral("Aucun mois n'est sélectionné !"), QStringLiteral("Maroval"),
                  ui::Icone::Information);
        return;
    }
    ui->Label1->setText(QStringLiteral("Liste des écritures passées sur le compte en ") +
                        NomMois(mois));
    AffEcritureCpt(compte, mois);
    vue = Vue::Mois;
    moisVu = mois;
}

void ConsCpt::AffEcritureCpt(const QString& Compte, int Mois) {
    table::Compte c;
    LireCompte(CleCourante(), Compte, c);
    CumulSolde = c.Sde;
    AfficherListeComptes(false);
    ui->Tree3->hide();
    ui->LB_Mois->hide();
    ui->Tree2->show();
    const std::vector<LigneCompte> lignes = LireLignesCompte(CleCourante(), Compte, Mois, c.Sde);
    if (!lignes.empty()) CumulSolde = lignes.back().Solde;
    if (ExportEnCours) {
        FichierCsv fichier(NomFichier, separateur);
        ExporterLignesCompte(fichier, lignes);
        fichier.Fermer();
    } else {
        AfficherLignesCompte(ui->Tree2, lignes);
    }
}

void ConsCpt::Command6_Click() {
    ui->Label1->setText(QStringLiteral("Cumuls mensuels du compte ") + compte);
    table::Compte c;
    LireCompte(CleCourante(), compte, c);
    ui->Tree2->hide();
    ui->Tree3->show();
    std::optional<FichierCsv> fichier;
    if (ExportEnCours) {
        fichier.emplace(NomFichier, separateur);
        fichier->EcrireTitres({QStringLiteral("Mois"), QStringLiteral("Débits"),
                               QStringLiteral("Crédits"), QStringLiteral("Solde mensuel"),
                               QStringLiteral("Solde cumulé")});
    } else {
        ui->Tree3->Vider();
    }
    Montant cumule = c.Sde;
    for (int i = 0; i < 12; ++i) {
        int m = session().MoisDebutExercice + i;
        if (m > 12) m -= 12;
        // Un mois hors de 1 à 12 est l'erreur d'exécution du programme (nom du mois d'abord).
        const QString nom = NomMois(m);
        const Montant debits = c.CumDM.at(static_cast<size_t>(m));
        const Montant credits = c.CumCM.at(static_cast<size_t>(m));
        const Montant mensuel = debits + credits;
        cumule += mensuel;
        if (fichier) {
            fichier->EcrireLigne({nom, NombreSimple(debits), NombreSimple(credits),
                                  NombreSimple(mensuel), NombreSimple(cumule)},
                                 true);
        } else {
            for (int col = 1; col < 5; ++col)
                ui->Tree3->FixerAlignementColonne(col, Qt::AlignRight | Qt::AlignVCenter);
            ui->Tree3->AjouterLigne({nom, AfficheMontant(debits), AfficheMontant(credits),
                                     AfficheMontant(mensuel), AfficheMontant(cumule)},
                                    m);
        }
    }
    if (fichier) fichier->Fermer();
    vue = Vue::Cumuls;
}

void ConsCpt::Command5_Click() {
    ui->Tree2->hide();
    ui->Tree3->hide();
    AfficherListeComptes(true);
    ui->Label11->setText(QStringLiteral(
        "Sélectionner le compte que vous souhaitez consulter ou tapez le ci-après :"));
    ui->Text1->clear();
    ui->Text1->setFocus();
    vue = Vue::Comptes;
}

void ConsCpt::BTExport_Click() {
    if (compte.isEmpty()) return;
    // Ce qui est montré est ce qui s'exporte : depuis la liste des comptes, tout le compte.
    if (vue == Vue::Comptes) Command1_Click();
    QString nom = nomExport;
    if (vue == Vue::Cumuls)
        nom = compte + QStringLiteral("-(Cumuls Mensuels)");
    else if (vue == Vue::Mois)
        nom = compte + QStringLiteral("-(") + NomMois(moisVu) + QLatin1Char(')');
    separateur = SeparateurListe();
    const QString fichier = ChoisirFichierExport(nom + QStringLiteral(".csv"));
    if (fichier.isEmpty()) return;
    NomFichier = fichier;
    ExportEnCours = true;
    if (vue == Vue::Cumuls)
        Command6_Click();
    else
        AffEcritureCpt(compte, vue == Vue::Mois ? moisVu : 0);
    ExportEnCours = false;
    TerminerExport(fichier, PhraseExportCompte(nom, fichier), QuestionExportCompte());
}

void ConsCpt::Command2_Click() {
    Retour();
}

void ConsCpt::Command4_Click() {
    Quitter();
}

} // namespace ecran
