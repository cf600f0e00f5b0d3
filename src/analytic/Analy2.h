#pragma once
// Consultation des sections : pour les sections choisies, la part des charges ou des
// produits de chaque compte qui leur revient.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Analy2;
}

namespace ecran {

class Analy2 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Analy2(QWidget* parent = nullptr);
    ~Analy2() override;

    bool SectionSelect(int numero) const;

public slots:
    void MajTree1();
    void Command2_Click();
    void Command3_Click();

private:
    std::unique_ptr<Ui::Analy2> ui;
};

} // namespace ecran
