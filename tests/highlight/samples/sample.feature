# It's a "remark
@slow
Feature: Walks that don't end
  Background:
    Given a "dog's" lead # no remark
  Scenario Outline: It's <n> steps
    When I don't stop at 12
    Then there are:
      | a | "b" |
    And a text:
      """
      two "lines
      """
