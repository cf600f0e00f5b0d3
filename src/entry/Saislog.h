#pragma once
// Choix de l'opération en langage courant : une famille à gauche, une ligne à droite.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Saislog;
}

namespace ecran {

class Saislog : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Saislog(QWidget* parent = nullptr);
    ~Saislog() override;

public slots:
    void Form_Load();
    void List1_Click();
    void List2_Click();
    void List2_DblClick();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();

private:
    std::unique_ptr<Ui::Saislog> ui;
};

} // namespace ecran
