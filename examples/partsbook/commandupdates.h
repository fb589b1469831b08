#pragma once

class CWnd_X;

/// What the looks of commands depend on.
struct CommandStates
{
    bool hasPart = false; ///< one is selected
    bool isPartInUse = false;
    bool hasName = false; ///< a kind or a supplier is the current entry of the tree
    bool hasFile = false; ///< the book has been read from one, or saved
    bool isModified = false;
    bool showsMessages = false;
};

/// Enables and checks the commands of a frame.
void updateCommands(const CWnd_X& frame, const CommandStates& states);
