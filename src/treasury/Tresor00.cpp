#include "treasury/Tresor00.h"

#include "treasury/Previsions.h"
#include "treasury/Tresor01.h"
#include "treasury/Tresor02.h"
#include "treasury/Tresor05.h"
#include "ui/Aide.h"

#include "ui_Tresor00.h"

namespace ecran {

Tresor00::Tresor00(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Tresor00>()) {
    FixerContexteAide(16);
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &Tresor00::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Tresor00::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Tresor00::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Tresor00::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Tresor00::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Tresor00::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &Tresor00::Command7_Click);
}

Tresor00::~Tresor00() = default;

void Tresor00::Command1_Click() {
    ui::MontrerModal<Tresor02>(this);
}

void Tresor00::Command2_Click() {
    ui::MontrerModal<Tresor01>(this);
}

void Tresor00::Command3_Click() {
    Retour();
}

void Tresor00::Command4_Click() {
    ui::MontrerModal<Tresor03>(this);
}

void Tresor00::Command5_Click() {
    MontrerAide();
}

void Tresor00::Command6_Click() {
    ui::MontrerModal<Tresor04>(this);
}

void Tresor00::Command7_Click() {
    ui::MontrerModal<Tresor05>(this);
}

} // namespace ecran
