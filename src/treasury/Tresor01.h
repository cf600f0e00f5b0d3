#pragma once
// Lettrage automatique de tous les comptes de clients ou de fournisseurs de l'exercice.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Tresor01;
}

namespace ecran {

class Tresor01 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Tresor01(QWidget* parent = nullptr);
    ~Tresor01() override;

    // Lance le lettrage de la classe MenuTiers ; faux quand il n'y avait aucun compte.
    bool Lettrage();

    int MenuTiers = 170;

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

private:
    void Lancer(int menu);

    std::unique_ptr<Ui::Tresor01> ui;
};

} // namespace ecran
