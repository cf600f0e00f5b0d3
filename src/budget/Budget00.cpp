#include "budget/Budget00.h"

#include "budget/Budget04.h"
#include "budget/ControleDetaille.h"
#include "budget/DonneesBudget.h"
#include "budget/SaisieBudget.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"

#include "ui_Budget00.h"

namespace ecran {

Budget00::Budget00(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Budget00>()) {
    FixerContexteAide(17);
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &Budget00::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Budget00::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Budget00::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Budget00::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Budget00::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Budget00::Command6_Click);
}

Budget00::~Budget00() = default;

void Budget00::Command1_Click() {
    // Tant que l'exercice précédent reste ouvert, c'est de lui que partent les prévisions.
    const int precedent = session().ExerciceCourant - 1;
    bool clos = false;
    if (budget::Exercice(CleExercice(session().NumSocCourante, precedent), &clos) && !clos) {
        ui::Boite(QStringLiteral("L 'exercice %1 n'étant pas clos, les prévisions du budget de "
                                 "l'exercice %2 sont à établir à partir de l'exercice %1.")
                      .arg(precedent)
                      .arg(session().ExerciceCourant),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    ui::MontrerModal<Budget02>(this);
}

void Budget00::Command2_Click() {
    bool clos = false;
    budget::Exercice(CleCourante(), &clos);
    if (clos) {
        ui::Boite(QStringLiteral("L’exercice en cours est clos. Pour gérer les prévisions de "
                                 "l'exercice\nsuivant vous devez sélectionner cet exercice (Menu "
                                 "Société Option Gérer)\npuis choisir la gestion du budget de "
                                 "l'exercice en cours."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    ui::MontrerModal<Budget01>(this);
}

void Budget00::Command3_Click() {
    Retour();
}

void Budget00::Command4_Click() {
    ui::MontrerModal<budget03>(this);
}

void Budget00::Command5_Click() {
    MontrerAide();
}

void Budget00::Command6_Click() {
    ui::MontrerModal<Budget04>(this);
}

} // namespace ecran
