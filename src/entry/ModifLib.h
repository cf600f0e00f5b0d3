#pragma once
// Modification du libellé d'un groupe d'écritures passé : seul le texte change, sur
// toutes les lignes du groupe ; aucun montant, aucun cumul.

#include "ui/EcranModal.h"

#include <QString>
#include <cstdint>
#include <memory>

class QTreeWidgetItem;

namespace Ui {
class ModifLib;
}

namespace ecran {

class ModifLib : public ui::EcranModal {
    Q_OBJECT
public:
    explicit ModifLib(QWidget* parent = nullptr);
    ~ModifLib() override;

    QString FiltreJournal = QStringLiteral("*");
    std::int32_t NumDebutGroupe = 0;
    std::int32_t NumFinGroupe = 0;

public slots:
    void Form_Activate();
    void AffJournal(const QString& journal);
    bool FinEcr(std::int32_t numero);
    void Tree1_Click(QTreeWidgetItem* element);
    void Text1_Change();
    void Text1_KeyPress();
    void Command1_Click();
    void Command2_Click();

protected:
    void showEvent(QShowEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    std::unique_ptr<Ui::ModifLib> ui;
    bool activee = false;
    // Texte du champ quand le groupe a été choisi.
    QString texteChoisi;
};

} // namespace ecran
