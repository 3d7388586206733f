#!/usr/bin/env python3
"""Describe what this script does."""


def main():
    pass


if __name__ == "__main__":
    main()
