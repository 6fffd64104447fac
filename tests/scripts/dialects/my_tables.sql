-- dumped from another database
SET NAMES utf8;
USE `shop`;
DROP TABLE IF EXISTS `article`;
CREATE TABLE `article` (
  `id` int(11) NOT NULL AUTO_INCREMENT,
  `name` varchar(255) DEFAULT NULL,
  `price` decimal(10,2) DEFAULT '0.00',
  PRIMARY KEY (`id`),
  KEY `name_idx` (`name`)
) ENGINE=InnoDB AUTO_INCREMENT=42 DEFAULT CHARSET=utf8 COMMENT='it''s all';
CREATE TABLE article2 (
  id int AUTO_INCREMENT PRIMARY KEY
);
LOCK TABLES `article` WRITE;
INSERT INTO `article` VALUES (1,'pen','1.20'),(2,'it\\'s; a ruler','0.80');
UNLOCK TABLES;
CREATE TABLE article3 (id INT NOT NULL, CONSTRAINT a3 PRIMARY KEY (id));
