#pragma once
// Menu du budget : prévisions de l'exercice en cours ou du suivant, contrôle détaillé ou
// global.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Budget00;
}

namespace ecran {

class Budget00 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Budget00(QWidget* parent = nullptr);
    ~Budget00() override;

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();

private:
    std::unique_ptr<Ui::Budget00> ui;
};

} // namespace ecran
