#pragma once
// Compte de résultat : charges et produits hors comptes de résultat 699 et 799, pour que
// les vraies charges et les vrais produits restent visibles après l'écriture de résultat.

#include "consultation/Bilan.h"

namespace Ui {
class Resultat;
}

namespace ecran {

class Resultat : public DeuxListes {
    Q_OBJECT
public:
    explicit Resultat(QWidget* parent = nullptr);
    ~Resultat() override;

protected:
    QString LegendeFinale(Montant gauche, Montant droite) const override;

private:
    std::unique_ptr<Ui::Resultat> ui;
};

} // namespace ecran
