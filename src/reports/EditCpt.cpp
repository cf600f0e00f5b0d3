#include "reports/EditCpt.h"

#include "consultation/ListeComptes.h"
#include "ui/Boite.h"

#include "ui_EditCpt.h"

namespace ecran {

EditCpt::EditCpt(std::function<void(const QString&)> editer_, QWidget* parent)
    : ui::EcranModal(parent), ui(new Ui::EditCpt), editer(std::move(editer_)) {
    FixerContexteAide(15);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    connect(ui->Tree1, &ui::Grille::selectionChangee, this, &EditCpt::Tree1_SelectionChange);
    connect(ui->Command1, &QPushButton::clicked, this, &EditCpt::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &EditCpt::Command2_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &EditCpt::Command4_Click);
    Form_Load();
}

EditCpt::~EditCpt() {
    delete ui;
}

void EditCpt::Form_Load() {
    RemplirListeComptes(ui->Tree1);
}

void EditCpt::Tree1_SelectionChange() {
    const QList<int> choisies = ui->Tree1->LignesSelectionnees();
    if (choisies.isEmpty()) return;
    const QString numero = ui->Tree1->DonneeLigne(choisies.first()).toString();
    if (MontrerChiffresCompte(numero, ui->Label3, ui->Label5, ui->Label7, ui->Label9))
        compte = numero;
}

void EditCpt::Command1_Click() {
    if (compte.isEmpty()) return;
    if (ui::Boite(QStringLiteral("Voulez-vous éditer le compte %1 ?").arg(compte),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    if (editer) editer(compte.trimmed());
}

void EditCpt::Command2_Click() {
    Retour();
}

void EditCpt::Command4_Click() {
    // Quitte aussi l'écran des éditions qui l'a ouvert.
    QuitterNiveaux(2);
}

} // namespace ecran
