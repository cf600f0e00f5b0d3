#pragma once
// Menu de la trésorerie : lettrage manuel ou automatique, prévisions des encaissements et
// des règlements, factures non réglées.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Tresor00;
}

namespace ecran {

class Tresor00 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Tresor00(QWidget* parent = nullptr);
    ~Tresor00() override;

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();

private:
    std::unique_ptr<Ui::Tresor00> ui;
};

} // namespace ecran
