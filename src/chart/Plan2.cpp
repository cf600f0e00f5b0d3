#include "chart/Plan2.h"

#include "chart/DonneesPlan.h"
#include "chart/GestionPlan.h"
#include "chart/ModifLibCpt.h"
#include "chart/Prembil.h"
#include "consultation/DetailCp.h"
#include "posting/Filtre.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui_Plan2.h"

#include <QKeyEvent>
#include <QShowEvent>

namespace ecran {

namespace {

const QString masqueGeneral = QStringLiteral("00000000;_");
const QString masqueClient = QStringLiteral("41>nnnnnn;_");
const QString masqueFournisseur = QStringLiteral("4\\0>nnnnnn;_");

void Refuser(const QString& texte) {
    ui::Boite(texte, QStringLiteral("Maroval"), ui::Icone::Exclamation);
}

} // namespace

Plan2::Plan2(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Plan2>()) {
    FixerContexteAide(5);
    ui->setupUi(this);
    // Entrée dans un champ ne doit actionner aucun bouton, même avant exec().
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    ui->Tree3->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    ui->Tree3->FixerLargeurColonne(0, 80);
    ui->Tree3->FixerLargeurColonne(1, 280);
    ui->Tree3->FixerLargeurColonne(2, 120);
    ui->Tree3->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree3->FixerTriMontants(2);
    ui->Mnumero->setInputMask(masqueGeneral);
    ui->Mnumero->installEventFilter(this);

    connect(ui->List1, &QListWidget::currentRowChanged, this, &Plan2::List1_Click);
    connect(ui->List2, &QListWidget::itemDoubleClicked, this, &Plan2::Command2_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &Plan2::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Plan2::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Plan2::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Plan2::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Plan2::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Plan2::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &Plan2::Command7_Click);
    connect(ui->Command8, &QPushButton::clicked, this, &Plan2::Command8_Click);
    connect(ui->Command9, &QPushButton::clicked, this, &Plan2::Command9_Click);
    connect(ui->Command10, &QPushButton::clicked, this, &Plan2::Command10_Click);
    connect(ui->BRclient, &QRadioButton::clicked, this, &Plan2::BRclient_Click);
    connect(ui->BRfournisseur, &QRadioButton::clicked, this, &Plan2::BRfournisseur_Click);
    connect(ui->BRgeneral, &QRadioButton::clicked, this, &Plan2::BRgeneral_Click);
    connect(ui->Mnumero, &QLineEdit::textEdited, this, &Plan2::Mnumero_Change);
    connect(ui->Tree3, &ui::Grille::ligneCliquee, this, &Plan2::Tree3_Click);
    connect(ui->Tree3, &ui::Grille::ligneDoubleCliquee, this, &Plan2::Tree3_DblClick);
    connect(ui->Tree3, &ui::Grille::touche, this, &Plan2::Tree3_KeyDown);
    Form_Load();
}

Plan2::~Plan2() {
    // Le champ perd le focus en disparaissant : plus rien à contrôler.
    ui->Mnumero->removeEventFilter(this);
}

void Plan2::Form_Load() {
    MajCaptionBilan();
    for (const plan::PlanStandard& p : plan::LirePlansStandard()) {
        auto* ligne = new QListWidgetItem(p.libelle);
        ligne->setData(Qt::UserRole, p.numero);
        ui->List1->addItem(ligne);
    }
    const QString choisi = plan::PlanRetenu(session().NumSocCourante);
    for (int i = 0; choisi != QLatin1String("0000") && i < ui->List1->count(); ++i) {
        if (ui->List1->item(i)->data(Qt::UserRole).toString() == choisi) {
            ui->List1->setCurrentRow(i);
            break;
        }
    }
    ui->SSPanel1->setText(QStringLiteral(
        "Choisissez un plan standard, puis les comptes à prendre, ou toute la liste."));
}

void Plan2::showEvent(QShowEvent* evenement) {
    EcranModal::showEvent(evenement);
    // Chaque retour sur l'écran (après le bilan d'ouverture, un libellé, un détail) relit
    // le plan.
    if (!evenement->spontaneous()) Form_Activate();
}

void Plan2::Form_Activate() {
    MajCaptionBilan();
    RemplirTree3(0);
}

void Plan2::MajCaptionBilan() {
    table::Constante k;
    if (LireConstante(CleCourante(), k) && k.OuvertureClos)
        ui->Command9->setText(QStringLiteral("Consultation du Bilan d'Ouverture"));
}

void Plan2::RemplirTree3(int menu) {
    ui->Tree3->setUpdatesEnabled(false);
    ui->Tree3->Vider();
    for (const plan::CompteListe& c : plan::ComptesDeLExercice(CleCourante(), menu))
        AjouterLigne(c.numero, c.libelle, c.solde);
    ui->Tree3->setUpdatesEnabled(true);
    MajLabel5();
    Trier();
}

void Plan2::AjouterLigne(const QString& numeroCompte, const QString& libelle, Montant solde) {
    const QString numero = numeroCompte.trimmed();
    ui->Tree3->AjouterLigne(
        {numero, libelle.trimmed(), FormaterMontant(solde, session().FormatMontant)}, numero);
}

void Plan2::MajLabel5() {
    ui->Label5->setText(QStringLiteral("%1 comptes").arg(ui->Tree3->NombreLignes()));
}

void Plan2::Trier() {
    ui->Tree3->Trier(0);
}

bool Plan2::PlanChoisi() const {
    const QListWidgetItem* ligne = ui->List1->currentItem();
    return ligne && ligne->isSelected();
}

QString Plan2::NumeroPlanChoisi() const {
    return ui->List1->currentItem()->data(Qt::UserRole).toString();
}

QString Plan2::NumeroListe2(int ligne) const {
    return ui->List2->item(ligne)->data(Qt::UserRole).toString().trimmed();
}

QString Plan2::LibelleListe2(int ligne) const {
    const QString texte = ui->List2->item(ligne)->text();
    return texte.mid(texte.indexOf(QLatin1Char('\t')) + 1).trimmed();
}

void Plan2::List1_Click() {
    ui->List2->clear();
    if (!ui->List1->currentItem()) return;
    for (const plan::CompteListe& c : plan::ComptesDuPlanStandard(NumeroPlanChoisi())) {
        auto* ligne = new QListWidgetItem(c.numero + QLatin1Char('\t') + c.libelle);
        ligne->setData(Qt::UserRole, ValeurTexte(c.numero));
        ui->List2->addItem(ligne);
    }
}

void Plan2::Command1_Click() {
    if (!PlanChoisi()) {
        ui::Boite(QStringLiteral("Sélectionnez d'abord un Plan Standard dans la liste de gauche."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    const QString question = QStringLiteral("Vous allez prendre la totalité du plan standard "
                                            "\"%1\".\r\rEtes-vous d'accord ?")
                                 .arg(ui->List1->currentItem()->text());
    if (ui::Boite(question, QStringLiteral("Confirmation"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    const int total = ui->List2->count();
    std::vector<plan::CompteListe> comptes;
    for (int i = 0; i < total; ++i)
        comptes.push_back({NumeroListe2(i), LibelleListe2(i), Montant()});
    ui->Gauge1->setMaximum(qMax(total, 1));
    ui->Gauge1->setValue(0);
    ui->Gauge1->show();
    ui->Tree3->setUpdatesEnabled(false);
    // Une nouvelle copie après un arrêt reprend tout : la copie est validée d'un seul tenant.
    const auto crees = plan::CopierComptes(CleCourante(), comptes, [this](int i) {
        ui->Gauge1->setValue(i + 1);
        if (i % 8 == 0) ui->Gauge1->repaint();
    });
    for (const plan::CompteListe& c : crees)
        AjouterLigne(c.numero, c.libelle, c.solde);
    ui->Tree3->setUpdatesEnabled(true);
    ui->Gauge1->hide();
    MajLabel5();
    Trier();
}

void Plan2::Command2_Click() {
    const QString cle = CleCourante();
    for (int i = 0; i < ui->List2->count(); ++i) {
        if (!ui->List2->item(i)->isSelected()) continue;
        const QString numero = NumeroListe2(i);
        if (ui->Tree3->ChercherDonnee(numero) >= 0) continue;
        AssurerCompte(cle, numero, LibelleListe2(i), QString(), QString());
        table::Compte c;
        if (LireCompte(cle, numero, c)) AjouterLigne(c.NumCpt, c.LibCpt, c.Solde);
    }
    MajLabel5();
    Trier();
}

void Plan2::Command3_Click() {
    MontrerAide();
}

void Plan2::Command4_Click() {
    if (PlanChoisi() && ui->Tree3->NombreLignes() > 0) {
        // Le plan retenu n'est qu'une commodité pour la prochaine visite : un fichier de
        // configuration protégé n'empêche pas de quitter.
        plan::RetenirPlan(session().NumSocCourante, NumeroPlanChoisi());
    }
    if (ui->Tree3->NombreLignes() > 1) AssurerComptesFixes(CleCourante());
    Retour();
}

void Plan2::Command5_Click() {
    ui->Frame2->hide();
    ui->Command1->hide();
    ui->SSPanel1->hide();
    ui->Frame3->show();
    ui->Command7->show();
    ui->BRclient->setChecked(false);
    ui->BRfournisseur->setChecked(false);
    ui->BRgeneral->setChecked(true);
    ui->Mnumero->setFocus();
    BRgeneral_Click();
}

void Plan2::Command7_Click() {
    ui->Frame2->show();
    ui->Command1->show();
    ui->SSPanel1->show();
    ui->Frame3->hide();
    ui->Command7->hide();
}

void Plan2::ChoisirMasque(const QString& masque) {
    ui->Mnumero->setInputMask(masque);
    // Les chiffres tapés sous l'ancien masque ne glissent pas dans le nouveau.
    ui->Mnumero->clear();
    ui->Mnumero->setFocus();
    ui->Lmessage->clear();
    filtreLu = false;
}

void Plan2::BRclient_Click() {
    ChoisirMasque(masqueClient);
    RemplirTree3(170);
}

void Plan2::BRfournisseur_Click() {
    ChoisirMasque(masqueFournisseur);
    RemplirTree3(160);
}

void Plan2::BRgeneral_Click() {
    ChoisirMasque(masqueGeneral);
    RemplirTree3(0);
}

QString Plan2::NumeroTape() const {
    return ui->Mnumero->text();
}

bool Plan2::ZoneNumeroVide() const {
    // Les chiffres imposés par le masque (41, 40) ne sont pas une saisie.
    const QString masque = ui->Mnumero->inputMask();
    if (masque == masqueClient) return NumeroTape() == QLatin1String("41");
    if (masque == masqueFournisseur) return NumeroTape() == QLatin1String("40");
    return NumeroTape().trimmed().isEmpty();
}

bool Plan2::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet != ui->Mnumero) return EcranModal::eventFilter(objet, evenement);
    if (evenement->type() == QEvent::KeyPress) {
        const int cle = static_cast<QKeyEvent*>(evenement)->key();
        if (cle == Qt::Key_Space) return true;
        if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
            ui->EDlibelle->setFocus();
            return true;
        }
        if (cle == Qt::Key_Up) {
            QRadioButton* choisi = ui->BRclient->isChecked()        ? ui->BRclient
                                   : ui->BRfournisseur->isChecked() ? ui->BRfournisseur
                                                                    : ui->BRgeneral;
            choisi->setFocus();
            return true;
        }
    } else if (evenement->type() == QEvent::FocusOut) {
        const Qt::FocusReason raison = static_cast<QFocusEvent*>(evenement)->reason();
        // Une boîte ou une autre fenêtre qui passe devant n'est pas un départ du champ.
        if (raison != Qt::ActiveWindowFocusReason && raison != Qt::PopupFocusReason && isVisible())
            Mnumero_LostFocus();
    }
    return EcranModal::eventFilter(objet, evenement);
}

void Plan2::Mnumero_Change() {
    const QString tape = NumeroTape();
    for (int i = 0; i < ui->Tree3->NombreLignes(); ++i) {
        if (ui->Tree3->Texte(i, 0) >= tape) {
            ui->Tree3->FixerLigneCourante(i);
            ui->Tree3->RendreVisible(i);
            return;
        }
    }
}

void Plan2::Mnumero_LostFocus() {
    if (controleEnCours) return;
    controleEnCours = true;
    const table::Filtre f = LireFiltre(NumeroTape());
    numeroLu = NumeroTape();
    filtreLu = true;
    ercptLu = f.ERCPT.trimmed();
    bilanLu = f.Bilan.trimmed();
    messageLu = f.Message.trimmed();
    if (ercptLu == QLatin1String("NN")) {
        Refuser(QStringLiteral("Ce numéro de compte n'existe pas dans le Plan Comptable Officiel"));
        ui->Mnumero->setFocus();
    } else {
        ui->Lmessage->setText(messageLu);
        const bool choix = ercptLu == QLatin1String("WW");
        if (choix && ui->Frame1->isHidden()) {
            // Un nouveau choix commence sans réponse.
            ui->BRactif->setAutoExclusive(false);
            ui->BRpassif->setAutoExclusive(false);
            ui->BRactif->setChecked(false);
            ui->BRpassif->setChecked(false);
            ui->BRactif->setAutoExclusive(true);
            ui->BRpassif->setAutoExclusive(true);
        }
        ui->Frame1->setVisible(choix);
    }
    controleEnCours = false;
}

void Plan2::Command8_Click() {
    if (MontrerRefus(
            plan::ControlerCompteTape(ZoneNumeroVide(), NumeroTape(), ui->EDlibelle->text())))
        return;
    // Le numéro a pu changer sans que le champ perde le focus.
    if (!filtreLu || numeroLu != NumeroTape()) Mnumero_LostFocus();
    if (ercptLu == QLatin1String("NN")) return;
    const plan::Cote cote = ui->BRactif->isChecked()    ? plan::Cote::Actif
                            : ui->BRpassif->isChecked() ? plan::Cote::Passif
                                                        : plan::Cote::Aucun;
    const QString numero = NumeroTape();
    if (MontrerRefus(
            plan::CreerCompteTape(CleCourante(), numero, ui->EDlibelle->text(), ercptLu, cote)))
        return;
    AjouterLigne(numero, ui->EDlibelle->text().left(40), Montant());
    ui->Mnumero->clear();
    ui->Lmessage->clear();
    ui->EDlibelle->clear();
    filtreLu = false;
    ui->Mnumero->setFocus();
    ui->Frame1->hide();
    MajLabel5();
    Trier();
}

bool Plan2::MontrerRefus(const plan::Refus& refus) {
    if (!refus.estRefus()) return false;
    // Le choix du côté se montre avant la boîte qui le demande.
    if (refus.champ == plan::Champ::Cote) ui->Frame1->show();
    Refuser(refus.texte);
    if (refus.champ == plan::Champ::Numero) ui->Mnumero->setFocus();
    if (refus.champ == plan::Champ::Libelle) ui->EDlibelle->setFocus();
    return true;
}

void Plan2::Tree3_Click() {
    const int ligne = ui->Tree3->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree3->DonneeLigne(ligne).toString();
    table::Compte c;
    if (LireCompte(CleCourante(), numero, c))
        ui->SSPanel1->setText(numero + QStringLiteral("   ") + c.LibCpt.trimmed());
}

void Plan2::Tree3_DblClick() {
    const int ligne = ui->Tree3->LigneCourante();
    if (ligne < 0) return;
    session().CompteChoisi = ui->Tree3->DonneeLigne(ligne).toString();
    DetailCp detail(this);
    detail.exec();
}

void Plan2::Tree3_KeyDown(int cle) {
    if (cle == Qt::Key_Delete) Command6_Click();
}

void Plan2::Command6_Click() {
    const int ligne = ui->Tree3->LigneCourante();
    if (ligne < 0) return;
    const QString cle = CleCourante();
    const QString numero = ui->Tree3->DonneeLigne(ligne).toString();
    if (!CompteSupprimable(cle, numero)) return;
    SupprimerCompte(cle, numero);
    ui->Tree3->SupprimerLigne(ligne);
    MajLabel5();
}

void Plan2::Command10_Click() {
    const int ligne = ui->Tree3->LigneCourante();
    if (ligne < 0) return;
    session().CompteChoisi = ui->Tree3->DonneeLigne(ligne).toString();
    ModifLibCpt modif(this);
    modif.exec();
}

void Plan2::Command9_Click() {
    Prembil bilan(this);
    bilan.exec();
}

} // namespace ecran
