#pragma once
// Annulation d'un groupe d'écritures par contre-passation : le groupe cliqué dans le
// journal est repris de l'autre côté, à la date de saisie, sous de nouveaux numéros.

#include "ui/EcranModal.h"

#include <QString>
#include <cstdint>
#include <memory>

class QTreeWidgetItem;

namespace Ui {
class Annul;
}

namespace ecran {

class Annul : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Annul(QWidget* parent = nullptr);
    ~Annul() override;

    QString FiltreJournal = QStringLiteral("*");
    std::int32_t NumProchain = 0;
    std::int32_t NumDebutGroupe = 0;
    std::int32_t NumFinGroupe = 0;

public slots:
    void Form_Activate();
    void AffJournal(const QString& journal);
    bool FinEcr(std::int32_t numero);
    void Tree1_Click(QTreeWidgetItem* element);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    std::unique_ptr<Ui::Annul> ui;
    bool activee = false;
};

} // namespace ecran
