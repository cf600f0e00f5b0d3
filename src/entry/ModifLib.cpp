#include "entry/ModifLib.h"

#include "base/Texte.h"
#include "entry/AffJournal.h"
#include "entry/DonneesSaisie.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui_ModifLib.h"

#include <QKeyEvent>

namespace ecran {

namespace {
constexpr int ColonneLibelle = 3;
}

ModifLib::ModifLib(QWidget* parent) : EcranJournal(parent), ui(std::make_unique<Ui::ModifLib>()) {
    ui->setupUi(this);
    Brancher(ui->Tree1, ui->Tree2, ui->Gauge1);
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, &ModifLib::Tree1_Click);
    connect(ui->Text1, &QLineEdit::textEdited, this, &ModifLib::Text1_Change);
    ui->Text1->installEventFilter(this);
    connect(ui->Command1, &QPushButton::clicked, this, &ModifLib::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &ModifLib::Command2_Click);
    ui->Command2->setEnabled(false);
}

ModifLib::~ModifLib() = default;

bool ModifLib::eventFilter(QObject* objet, QEvent* evenement) {
    // Entrée dans le champ appartient au champ : elle n'actionne aucun bouton.
    if (objet == ui->Text1 && evenement->type() == QEvent::KeyPress) {
        const int cle = static_cast<QKeyEvent*>(evenement)->key();
        if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
            Text1_KeyPress();
            return true;
        }
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

void ModifLib::Form_Activate() {
    FiltreJournal = QStringLiteral("*");
    ui->Command2->setEnabled(false);
    ui->Text1->clear();
    texteChoisi.clear();
    AffJournal(FiltreJournal);
}

void ModifLib::Tree1_Click(int ligne) {
    if (!ChoisirGroupe(ligne)) return;
    texteChoisi = ui->Tree2->NombreLignes() > 0 ? ui->Tree2->Texte(0, ColonneLibelle) : QString();
    ui->Text1->setText(texteChoisi);
    ui->Text1->setFocus();
    ui->Text1->selectAll();
}

void ModifLib::Text1_Change() {
    if (ui->Text1->text() != texteChoisi) ui->Command2->setEnabled(true);
}

void ModifLib::Text1_KeyPress() {
    ui::Grille* t2 = ui->Tree2;
    if (t2->NombreLignes() == 0) {
        ui::Boite(QStringLiteral("Sélectionnez d'abord un groupe d'écritures"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    const QString texte = ui->Text1->text();
    for (int l = 0; l < t2->NombreLignes(); ++l)
        t2->FixerTexte(l, ColonneLibelle, texte);
    NumDebutGroupe = t2->DonneeLigne(0).toInt();
    NumFinGroupe = t2->DonneeLigne(t2->NombreLignes() - 1).toInt();
    if (!texte.isEmpty()) {
        ui->Command2->setEnabled(true);
        ui->Command2->setFocus();
    }
}

void ModifLib::Command2_Click() {
    if (ui->Text1->text().isEmpty()) {
        ui::Boite(QStringLiteral("Saisissez un nouveau libellé avant de cliquer sur OK"),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        ui->Text1->setFocus();
        return;
    }
    setCursor(Qt::WaitCursor);
    saisie::ChangerLibelle(NumDebutGroupe, NumFinGroupe, ui->Text1->text());
    unsetCursor();
    Form_Activate();
}

void ModifLib::Command1_Click() {
    saisie::Vider();
    Retour();
}

} // namespace ecran
