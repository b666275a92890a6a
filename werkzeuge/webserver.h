// A small HTTP server on loopback whose behaviour is a function: it sees the request and sends what it likes.
// For tests and for trying; nothing of the programs uses it.
#pragma once

#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace liedwerk::werkzeuge {

class Server {
  public:
    // The way to one client.
    class Leitung {
      public:
        Leitung(int Steckdose, const std::atomic<bool>& Halt) : Griff(Steckdose), Ende(Halt) {}
        // False when the client has gone or the server ends.
        bool Senden(std::string_view Bytes) {
            while (!Bytes.empty() && !Ende) {
                pollfd Warten{Griff, POLLOUT, 0};
                if (poll(&Warten, 1, 20) == 0) continue;
                const ssize_t Fort = send(Griff, Bytes.data(), Bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
                if (Fort <= 0) return false;
                Bytes.remove_prefix(static_cast<std::size_t>(Fort));
            }
            return !Ende;
        }
        // A whole reply with its length.
        bool Antworten(std::string_view Inhalt, std::string_view Status = "200 OK") {
            return Senden("HTTP/1.1 " + std::string(Status) + "\r\nContent-Length: " +
                          std::to_string(Inhalt.size()) + "\r\n\r\n" + std::string(Inhalt));
        }
        // Waits; false when the client has gone or the server ends.
        bool Warten(std::chrono::milliseconds Dauer) const {
            const auto Bis = std::chrono::steady_clock::now() + Dauer;
            while (!Ende && std::chrono::steady_clock::now() < Bis) {
                pollfd Hören{Griff, POLLIN, 0};
                char Byte = 0;
                if (poll(&Hören, 1, 5) > 0 && recv(Griff, &Byte, 1, MSG_PEEK) <= 0) return false;
            }
            return !Ende;
        }

      private:
        int Griff;
        const std::atomic<bool>& Ende;
    };
    using Verhalten = std::function<void(const std::string& Anfrage, Leitung& Weg)>;

    // OhneFrage: it acts on each guest at once, without waiting for a request.
    explicit Server(Verhalten Wie, bool OhneFrage = false)
        : Tun(std::move(Wie)), Sofort(OhneFrage), Griff(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in Ort{};
        Ort.sin_family = AF_INET;
        Ort.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t Länge = sizeof Ort;
        if (bind(Griff, reinterpret_cast<sockaddr*>(&Ort), Länge) != 0 || listen(Griff, 8) != 0 ||
            getsockname(Griff, reinterpret_cast<sockaddr*>(&Ort), &Länge) != 0)
            throw std::runtime_error("kein Server");
        Port = ntohs(Ort.sin_port);
        Annahme = std::thread([this] { Annehmen(); });
    }
    ~Server() {
        Ende = true;
        Annahme.join();
        for (std::thread& Einer : Bedienungen)
            Einer.join();
        close(Griff);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::string Name() const { return "127.0.0.1:" + std::to_string(Port); }
    // The requests so far, head and body as they came.
    std::vector<std::string> Anfragen() const {
        const std::lock_guard Halten(Riegel);
        return Gehört;
    }

  private:
    void Annehmen() {
        while (!Ende) {
            pollfd Hören{Griff, POLLIN, 0};
            if (poll(&Hören, 1, 10) <= 0) continue;
            // A program that is started meanwhile must not hold the connection open.
            const int Gast = accept4(Griff, nullptr, nullptr, SOCK_CLOEXEC);
            if (Gast >= 0) Bedienungen.emplace_back([this, Gast] { Bedienen(Gast); });
        }
    }
    static bool Vollständig(const std::string& Text) {
        const auto Kopfende = Text.find("\r\n\r\n");
        if (Kopfende == std::string::npos) return false;
        const auto Länge = Text.find("Content-Length: ");
        return Länge > Kopfende || Text.size() >= Kopfende + 4 + std::stoul(Text.substr(Länge + 16));
    }
    void Bedienen(int Gast) {
        std::string Anfrage;
        char Puffer[4096];
        while (!Ende && !Sofort && !Vollständig(Anfrage)) {
            pollfd Hören{Gast, POLLIN, 0};
            if (poll(&Hören, 1, 10) == 0) continue;
            const ssize_t Anzahl = recv(Gast, Puffer, sizeof Puffer, 0);
            if (Anzahl <= 0) break;
            Anfrage.append(Puffer, static_cast<std::size_t>(Anzahl));
        }
        if (Sofort || Vollständig(Anfrage)) {
            {
                const std::lock_guard Halten(Riegel);
                Gehört.push_back(Anfrage);
            }
            Leitung Weg(Gast, Ende);
            Tun(Anfrage, Weg);
        }
        close(Gast);
    }

    Verhalten Tun;
    bool Sofort;
    int Griff;
    int Port = 0;
    std::atomic<bool> Ende = false;
    mutable std::mutex Riegel;
    std::vector<std::string> Gehört;
    std::vector<std::thread> Bedienungen;
    std::thread Annahme;
};

// Sends the beginning once and the rest over and over, as long as somebody listens.
inline Server::Verhalten Endlos(std::string Anfang, std::string Rest, std::chrono::milliseconds Pause = {}) {
    while (Pause == Pause.zero() && Rest.size() < 30000)
        Rest += Rest;
    return [=](const std::string&, Server::Leitung& Weg) {
        Weg.Senden(Anfang);
        while (Weg.Senden(Rest) && Weg.Warten(Pause)) {
        }
    };
}

inline Server::Verhalten Einmal(std::string Alles) {
    return [=](const std::string&, Server::Leitung& Weg) { Weg.Senden(Alles); };
}

}  // namespace liedwerk::werkzeuge
