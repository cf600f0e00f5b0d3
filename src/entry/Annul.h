#pragma once
// Annulation d'un groupe d'écritures par contre-passation : le groupe cliqué dans le
// journal est repris de l'autre côté, à la date de saisie, sous de nouveaux numéros.

#include "entry/AffJournal.h"

#include <QString>
#include <cstdint>
#include <memory>

namespace Ui {
class Annul;
}

namespace ecran {

class Annul : public EcranJournal {
    Q_OBJECT
public:
    explicit Annul(QWidget* parent = nullptr);
    ~Annul() override;

    std::int32_t NumProchain = 0;

public slots:
    void Form_Activate() override;
    void Tree1_Click(int ligne);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

private:
    std::unique_ptr<Ui::Annul> ui;
};

} // namespace ecran
