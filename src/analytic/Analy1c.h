#pragma once
// Ventilation d'une ligne à ventiler (section 99) entre les sections 1 à 98, en pourcentages
// dont la somme doit faire exactement 100.

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Analy1c;
}

namespace ecran {

class Analy1c : public ui::EcranModal {
    Q_OBJECT
public:
    // rappel : numéro, date, libellé et montant de la ligne, pour mémoire.
    Analy1c(QWidget* parent, double numEcr, const QString& rappel);
    ~Analy1c() override;

    void MajTree1();
    // Reste en centièmes de pour cent après ce pourcentage mis à cette ligne ; faux au-delà
    // de 100.
    bool CalculCumulPrc(int ligne, qint64 centiemes);

public slots:
    void Command3_Click();
    void Command5_Click();

private:
    void Poser(int ligne, qint64 centiemes);

    std::unique_ptr<Ui::Analy1c> ui;
    const double numEcr;
    Montant montant;
    qint64 reste = 10000; // centièmes de pour cent
};

} // namespace ecran
