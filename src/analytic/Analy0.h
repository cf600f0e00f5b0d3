#pragma once
// Menu de la comptabilité analytique.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Analy0;
}

namespace ecran {

class Analy0 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Analy0(QWidget* parent = nullptr);
    ~Analy0() override;

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command5_Click();

private:
    std::unique_ptr<Ui::Analy0> ui;
};

} // namespace ecran
