#include "analytic/Analy0.h"

#include "analytic/Analy1.h"
#include "analytic/Analy2.h"
#include "ui/Aide.h"

#include "ui_Analy0.h"

namespace ecran {

Analy0::Analy0(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Analy0>()) {
    FixerContexteAide(18);
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &Analy0::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Analy0::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Analy0::Command3_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Analy0::Command5_Click);
}

Analy0::~Analy0() = default;

void Analy0::Command1_Click() {
    Analy1 e(this);
    e.exec();
}

void Analy0::Command2_Click() {
    Analy2 e(this);
    e.exec();
}

void Analy0::Command3_Click() {
    Retour();
}

void Analy0::Command5_Click() {
    MontrerAide();
}

} // namespace ecran
