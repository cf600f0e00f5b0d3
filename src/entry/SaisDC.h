#pragma once
// Saisie en débits et crédits, premier écran : le choix du journal (et, pour la
// trésorerie, de l'opération) qui limite les comptes proposés ensuite.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class SaisDC;
}

namespace ecran {

class SaisDC : public ui::EcranModal {
    Q_OBJECT
public:
    explicit SaisDC(QWidget* parent = nullptr);
    ~SaisDC() override;

public slots:
    void Form_Load();
    void Option_Click();
    void Command1_Click();
    void Command2_Click();
    void Command4_Click();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    std::unique_ptr<Ui::SaisDC> ui;
};

} // namespace ecran
