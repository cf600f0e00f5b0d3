#pragma once
// Prévisions des encaissements (clients, Tresor03) et des règlements (fournisseurs,
// Tresor04) : ce qui reste ouvert, réparti par mois d'échéance, et le contrôle par le solde
// du collectif. Deux écrans qui ne diffèrent que par leur classe de comptes.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Previsions;
}

namespace ecran {

class PrevisionsTiers : public ui::EcranModal {
    Q_OBJECT
public:
    ~PrevisionsTiers() override;

public slots:
    // Recalcule tout, à chaque activation de l'écran.
    void Form_Activate();
    void Command3_Click();

protected:
    PrevisionsTiers(QWidget* parent, const QString& nom, const QString& titre,
                    const QString& titreCadre, int menu, const QString& collectif);
    void showEvent(QShowEvent* evenement) override;

private:
    std::unique_ptr<Ui::Previsions> ui;
    int menu;
    QString collectif;
};

class Tresor03 : public PrevisionsTiers {
    Q_OBJECT
public:
    explicit Tresor03(QWidget* parent = nullptr);
};

class Tresor04 : public PrevisionsTiers {
    Q_OBJECT
public:
    explicit Tresor04(QWidget* parent = nullptr);
};

} // namespace ecran
