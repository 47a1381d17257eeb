"""The daily road by hand, with keys and mouse from outside the program: a system is made on the
first day; on the next one a user logs on and opens it, names three keys, records a door, assigns
it, issues units, hands one out, takes it back and exits. Then the file has to hold just that.

    daily.py EXECUTABLE    the executable in a portable folder whose files are still empty
"""
import os
import sqlite3
import sys

from hand import Hand, Lost, tree

LIST_ITEM = ["list item"]
BUTTON = ["push button"]


def log_on(hand):
    hand.window("Quorrel Log On")
    hand.fill("User Name", "Administrator")
    hand.fill("Password", "tamarisk")
    hand.key("Return")
    hand.answer("Activate Auto-Logoff Y/N?", "alt+n")


def exit_program(hand):
    hand.window("Quorrel - Main Page")
    hand.key("ctrl+q")
    hand.window("Quorrel - Exit")
    hand.press("Exit")
    assert hand.ended() == 0


def first_day(hand):
    hand.window("Quorrel - Welcome")
    hand.press("Continue")
    hand.answer("Did you read the Logon Information?", "alt+y")
    hand.window("Quorrel - Your Company Info")
    hand.fill("Company Name", "Harbour Locks")
    hand.key("alt+s")
    log_on(hand)
    hand.window("Quorrel - Create Master Key")
    hand.fill("Name of Key System", "Hospital")
    hand.fill("Smallest pin size", "0")
    hand.key("Tab")
    hand.type("9")
    hand.fill("Number of Pins", "6")
    hand.fill("Increment", "2")
    hand.fill("Safety Factor", "7")
    hand.fill("Master Key", "395172")
    hand.control(["label"], "Total Usable Change Keys = 4096")
    hand.press("Create")
    exit_program(hand)


def name_keys(hand):
    hand.window("Quorrel - Main Page")
    for cell, label in enumerate(["front 1", "front 2", "front 3"]):
        hand.click(BUTTON, f"Change Key {cell},")
        hand.fill("Key ID", label)
    hand.click(BUTTON, "Change Key 0,")
    hand.control(["label"], "Keys of the system: 3 keys named")


def key_a_door(hand):
    hand.key("ctrl+d")
    hand.window("Quorrel - Doors")
    hand.type("D-101")
    hand.key("Tab")
    hand.type("Main entrance")
    hand.key("alt+s")
    hand.click(LIST_ITEM, "D-101")
    hand.click(LIST_ITEM, "FRONT 2")
    hand.key("alt+t")
    hand.control(["label"], "Last action: Door D-101 assigned to FRONT 2")
    hand.key("alt+o")


def lend_a_key(hand):
    hand.window("Quorrel - Main Page")
    hand.key("ctrl+k")
    hand.window("Quorrel - Key Users")
    hand.fill("User ID", "100")
    hand.fill("First Name", "Anna")
    hand.fill("Last Name", "Berg")
    hand.key("alt+s")
    hand.click(LIST_ITEM, "FRONT 2")
    hand.fill("First Unit ID", "1")
    hand.fill("Last Unit ID", "3")
    hand.key("Return")
    hand.control(["label"], "Last action: 3 units of FRONT 2 issued")
    hand.click(LIST_ITEM, "100 Berg Anna")
    hand.click(LIST_ITEM, "2")
    hand.key("alt+a")
    hand.click(LIST_ITEM, "2 - 100 Berg Anna")
    hand.key("alt+r")
    hand.answer("Enter Note or Report Number")
    hand.type("Moved away")
    hand.key("Return")
    hand.control(["label"], "Last action: Unit 2 of FRONT 2 returned by Berg Anna")
    hand.key("alt+o")


def next_day(hand):
    log_on(hand)
    hand.window("Quorrel - Open Key System")
    hand.click(LIST_ITEM, "Hospital")
    hand.press("Open")
    name_keys(hand)
    key_a_door(hand)
    lend_a_key(hand)
    exit_program(hand)


WHAT_THE_FILE_HOLDS = {
    "SELECT trim(KeyID), PageNumber, Position FROM AllKeys ORDER BY Position":
        [("FRONT 1", 1, 0), ("FRONT 2", 1, 1), ("FRONT 3", 1, 2)],
    "SELECT DoorLabel, DoorDescription, CutsLabel FROM Doors":
        [("D-101", "Main entrance", "FRONT 2".ljust(12))],
    "SELECT UserIDNumber, Firstname, Lastname FROM KeyUsers": [("100", "Anna", "Berg")],
    "SELECT UnitID, trim(KeyID) FROM KeyUnit ORDER BY UnitIDNumber":
        [("1", "FRONT 2"), ("2***Returned!", "FRONT 2"), ("3", "FRONT 2")],
    "SELECT count(*) FROM UsertoUnit": [(0,)],
    "SELECT trim(KeyID), UnitID, UserName, LoggedUser, Report FROM ReturnKey":
        [("FRONT 2", "2", "Berg, Anna", "Administrator", "Moved away")],
    "SELECT count(*) FROM LostKeys": [(0,)],
}


def compare_file(path):
    with sqlite3.connect(f"file:{path}?mode=ro", uri=True) as file:
        for question, expected in WHAT_THE_FILE_HOLDS.items():
            found = file.execute(question).fetchall()
            assert found == expected, f"{question}\n  gave     {found}\n  expected {expected}"


def main(executable):
    for day in (first_day, next_day):
        hand = Hand(executable)
        try:
            day(hand)
        except Lost:
            print(tree())
            raise
        finally:
            hand.program.kill()
    compare_file(os.path.join(os.path.dirname(executable), "KeySystem.qv2"))
    print("The daily road went to its end, and the file holds what was done.")


if __name__ == "__main__":
    main(os.path.abspath(sys.argv[1]))
