// Makes the files that are delivered, and lays them out in a program folder.
//
//   quorrel_files empty SCHEMA-FOLDER FOLDER      makes the three empty database files
//   quorrel_files layout DELIVERED-FOLDER FOLDER  lays out what is missing, overwrites nothing

#include "store/DatabaseFiles.h"
#include "store/ProgramFolder.h"

#include <QString>

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    const QString verb = argc == 4 ? QString::fromLocal8Bit(argv[1]) : QString();
    try {
        if (verb == QLatin1String("empty"))
            quorrel::MakeEmptyFiles(QString::fromLocal8Bit(argv[2]),
                                    QString::fromLocal8Bit(argv[3]));
        else if (verb == QLatin1String("layout"))
            quorrel::LayOutProgramFolder(QString::fromLocal8Bit(argv[2]),
                                         QString::fromLocal8Bit(argv[3]));
        else {
            std::cerr << "usage: quorrel_files empty|layout FROM TO\n";
            return 2;
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
