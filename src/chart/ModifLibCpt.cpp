#include "chart/ModifLibCpt.h"

#include "chart/DonneesPlan.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui_ModifLibCpt.h"

namespace ecran {

ModifLibCpt::ModifLibCpt(QWidget* parent)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::ModifLibCpt>()) {
    FixerContexteAide(5);
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &ModifLibCpt::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &ModifLibCpt::Command2_Click);
    Form_Load();
}

ModifLibCpt::~ModifLibCpt() = default;

void ModifLibCpt::Form_Load() {
    plan =
        parentWidget() ? parentWidget()->findChild<ui::Grille*>(QStringLiteral("Tree3")) : nullptr;
    ligne = plan ? plan->LigneCourante() : -1;
    if (ligne >= 0) {
        ui->Label1->setText(plan->Texte(ligne, 0).trimmed());
        ui->EDlibelle->setText(plan->Texte(ligne, 1).trimmed());
        return;
    }
    // Ouvert hors du plan : le compte choisi et son libellé rangé.
    table::Compte c;
    ui->Label1->setText(session().CompteChoisi.trimmed());
    if (LireCompte(CleCourante(), session().CompteChoisi.trimmed(), c))
        ui->EDlibelle->setText(c.LibCpt.trimmed());
}

void ModifLibCpt::Command1_Click() {
    const QString libelle = ui->EDlibelle->text();
    if (libelle.trimmed().isEmpty()) {
        ui::Boite(QStringLiteral("La saisie d'un libellé est OBLIGATOIRE !"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ui->EDlibelle->setFocus();
        return;
    }
    const QString cle = CleCourante();
    const QString numero = ui->Label1->text();
    plan::ChangerLibelleCompte(cle, numero, libelle);
    if (plan && ligne >= 0 && ligne < plan->NombreLignes())
        plan->FixerTexte(ligne, 1, TexteRange(libelle, 40));
    Retour();
}

void ModifLibCpt::Command2_Click() {
    Retour();
}

} // namespace ecran
