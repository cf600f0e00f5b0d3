#pragma once
// Fin d'exercice : création du plan de l'exercice suivant et transfert des soldes de
// l'exercice en cours, provisoire jusqu'à ce que les chiffres le disent définitif.

#include "ui/EcranModal.h"

namespace Ui {
class Cloture;
}

namespace ecran {

class Cloture : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Cloture(QWidget* parent = nullptr);
    ~Cloture() override;

public slots:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();

private:
    // Quitte l'écran après un transfert provisoire ou définitif.
    void Decharger();

    Ui::Cloture* ui;
};

} // namespace ecran
