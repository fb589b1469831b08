#pragma once
struct Linked
{
};
