#pragma once
// Choix des comptes d'une opération : pour chaque case du menu, les comptes des classes
// permises ; chaque compte retenu devient une ligne préparée de wSaisie, marquée du
// journal, du rappel et du signe de sa case.

#include "ui/EcranModal.h"

#include <cstdint>
#include <memory>

namespace Ui {
class ChoixCpt;
}

namespace ecran {

class ChoixCpt : public ui::EcranModal {
    Q_OBJECT
public:
    explicit ChoixCpt(QWidget* parent = nullptr);
    ~ChoixCpt() override;

    void RemplirCompteLog(const QString& slot);

public slots:
    void Form_Load();
    void Form_Activate();
    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Tree1_KeyDown(int cle);

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    // Coche l'option de la case et remplit Tree1, comme un clic sur elle.
    void ChoisirOption(int slot);
    int SlotCoche() const;
    void RemplirTree2();

    std::unique_ptr<Ui::ChoixCpt> ui;
    std::int16_t NumLigneSaisie = 0;
    bool RetourDetail = false;
};

} // namespace ecran
