#pragma once
// Le sablier le temps d'un travail : rendu à la sortie du bloc, même si le travail échoue.

namespace ui {

class Sablier {
public:
    Sablier();
    ~Sablier();
    Sablier(const Sablier&) = delete;
    Sablier& operator=(const Sablier&) = delete;
};

} // namespace ui
