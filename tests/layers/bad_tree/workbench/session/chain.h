#pragma once

class Link;
