#pragma once
// Modification du libellé d'un groupe d'écritures passé : seul le texte change, sur
// toutes les lignes du groupe ; aucun montant, aucun cumul.

#include "entry/AffJournal.h"

#include <QString>
#include <cstdint>
#include <memory>

namespace Ui {
class ModifLib;
}

namespace ecran {

class ModifLib : public EcranJournal {
    Q_OBJECT
public:
    explicit ModifLib(QWidget* parent = nullptr);
    ~ModifLib() override;

public slots:
    void Form_Activate() override;
    void Tree1_Click(int ligne);
    void Text1_Change();
    void Text1_KeyPress();
    void Command1_Click();
    void Command2_Click();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    std::unique_ptr<Ui::ModifLib> ui;
    // Texte du champ quand le groupe a été choisi.
    QString texteChoisi;
};

} // namespace ecran
